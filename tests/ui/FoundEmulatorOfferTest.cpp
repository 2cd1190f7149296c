#include "app/Startup.h"
#include "emulators/FoundEmulators.h"
#include "support/StandInEmulator.h"
#include "support/WindowTest.h"

namespace {

class FoundEmulatorOfferTest : public WindowTest {
protected:
    // Starts the window with only a stand-in Mednafen on the search path.
    void StartWithMednafen() {
        const QString bin = MakeFolder("bin");
        WriteStandInScript(bin + "/mednafen", "exit 0");
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.toLocal8Bit());
        m_offerFoundEmulators = true;
        StartWindow();
        qputenv("PATH", path);
    }
};

TEST_F(FoundEmulatorOfferTest, AFirstRunOffersTheBestFoundEmulatorOnceAsTheDefault) {
    m_prompts.AnswerMessage(PromptAnswer::Yes);
    StartWithMednafen();
    ASSERT_EQ(m_prompts.Asked().size(), 1);
    const QString best = ReadFoundEmulators(m_state.Store).first().Name;
    EXPECT_TRUE(m_prompts.AskedTexts().first().startsWith(best + " was found on this system"));
    EXPECT_EQ(m_prompts.Asked().first().buttons, PromptButtons::YesNo);
    EXPECT_EQ(m_state.Options.DefaultEmulator, best);
    EXPECT_TRUE(FindFoundEmulator(m_state.Store, "Mednafen"));

    // Asked once only.
    m_window.reset();
    StartWithMednafen();
    EXPECT_EQ(m_prompts.Asked().size(), 1);
}

TEST_F(FoundEmulatorOfferTest, NoQuestionWhenOneOfTheThreeIsSetUp) {
    AppState seed;
    DefineEmulators(seed.Emulators, seed.Store);
    seed.Options = DefaultSettings();
    seed.Emulators.Records[1].Folder = "/emus/snes9x/";
    SaveEverything(seed);
    StartWithMednafen();
    EXPECT_TRUE(m_prompts.Asked().isEmpty());
}

} // namespace
