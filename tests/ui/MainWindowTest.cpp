#include "app/Startup.h"
#include "config/Profiles.h"
#include "emulators/FoundEmulators.h"
#include "support/FileSizeLimit.h"
#include "support/WindowTest.h"

#include <QImage>
#include <QSignalSpy>

namespace {

class MainWindowTest : public WindowTest {
protected:
    // Four games in a folder, two groups, one game removed, stored as a last run left them.
    void SeedStore(const QString& defaultGroup = "Ungrouped") {
        SeedGames("SNES Games",
                  {{"Zelda.SMC", "Zelda;RPG"},
                   {"Mario.sfc", "Mario;Action"},
                   {"Gone.smc", "/invisible;RPG"},
                   {"Tetris.smc", "Tetris;RPG;Snes9X;fast"}},
                  defaultGroup);
    }
    bool StoreHasSettings() const { return SettingsStore().Contains("Settings", "DefaultGroup"); }
    void StartWithMednafen() {
        m_offerFoundEmulators = true;
        WithMednafenOnPath([this] { StartWindow(); });
    }
};

TEST_F(MainWindowTest, StartsInOrderListsTheDefaultGroupOrUngroupedAndTheGamesProfiles) {
    SeedStore("No Such Group");
    for (const char* profile : {"fast", "Basic", "clean"})
        WriteProfile(m_state.Store, "Snes9X", QString::fromLatin1(profile), "-x");
    StartWindow({"/DEBUG"});
    EXPECT_TRUE(LogText().startsWith(QStringLiteral(
        "\r\n\r\n=== Loaded frmEventLog ===\r\nEmulator Defined: Nlke\r\nEmulator Defined: Snes9X"
        "\r\nEmulator Defined: ZSnes\r\nImporting Settings from: Registry...Done.\r\nImporting "
        "Game Folders from: Registry...Done.\r\n\r\n=== Loaded frmMain ===\r\nImporting GroupList "
        "from: Registry...Done.\r\nAdding groups to frmMain.cboGroupList...Done.(Loaded "
        "frmLoadGameList)...\r\nGameList array cleared.\r\nImporting files from: ")))
        << LogText().toStdString();
    EXPECT_TRUE(LogText().contains(
        QStringLiteral("Duplicates Found? False\r\n\r\n=== Unloaded frmLoadGameList ===\r\n"
                       "Adding games to list for group: Ungrouped...Done.")));
    EXPECT_TRUE(Control<QMenu>("mnuDevMenu")->menuAction()->isVisible());
    EXPECT_EQ(Control<QComboBox>("cboGroupList")->currentText() + Listed().join(','), "Ungrouped");

    ChooseGroup("RPG");
    EXPECT_EQ(Listed(), (QStringList{"Tetris", "Zelda"})); // the removed game stays hidden
    const qsizetype fills = LogText().count("Adding games to list for group");
    ChooseGroup("RPG"); // the same group again: not filled again
    EXPECT_EQ(LogText().count("Adding games to list for group"), fills);

    // The profile menu lists the game's emulator's profiles sorted.
    auto* menu = Control<QMenu>("mnuRomMenu");
    ClickLine(List(), 0, Qt::RightButton);
    ASSERT_TRUE(menu->isVisible());
    menu->hide();
    EXPECT_EQ(MenuEntries(Control<QMenu>("mnuRomMenu_Profile")).mid(0, 4),
              (QStringList{"Basic", "clean", "fast*", "&Default"}));
    const GameRecord& tetris = m_state.Games.Records[Game("Tetris")];

    // "New..." creates a profile for the game's emulator and gives it to the game.
    SaveProfileInEditor("  Speedy ", "-m 2");
    Control<QAction>("mnuProfile_New")->trigger();
    EXPECT_EQ(tetris.Profile, "Speedy");
    EXPECT_EQ(ReadProfile(m_state.Store, "Snes9X", "Speedy"), "-m 2");
}

TEST_F(MainWindowTest, DebugCloseAsksCancelKeepsRunningUnsavedAndYesShowsTheCloseReason) {
    SeedStore();
    m_state.Store.Clear();
    StartWindow({"/debug"});
    QSignalSpy closed(m_window.get(), &frmMain::Closed);

    m_prompts.AnswerMessage(PromptAnswer::Cancel);
    m_window->close();
    EXPECT_TRUE(m_window->isVisible() && frmEventLog::Instance()->isVisible());
    EXPECT_FALSE(StoreHasSettings() || closed.count());

    m_prompts.AnswerMessage(PromptAnswer::Yes);
    QString logAtEnd;
    RunWhenModal([&logAtEnd](QWidget* log) {
        logAtEnd = frmEventLog::Instance()->Text();
        log->close();
    });
    m_window->close();
    EXPECT_TRUE(logAtEnd.contains(QStringLiteral(
        "\r\n\r\n=== Preparing to unload Lumbra===\r\nExporting Settings to: Registry...Done."
        "\r\nExporting Game Folder list to: Registry...Done.\r\nExporting GroupList to: Registry"
        "...Done.\r\nExporting GameList to: Registry...Done.\r\n\r\nWaiting to End Lumbra (Unload "
        "Mode 0)")))
        << logAtEnd.toStdString();
    EXPECT_TRUE(StoreHasSettings() && closed.count() == 1);
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList(2, "View the Event Log before Ending?"));
    EXPECT_EQ(m_prompts.Asked().first().buttons, PromptButtons::YesNoCancel);
    // Without debug mode, Options > Exit asks nothing and saves: the smoke test ends so.
}

TEST_F(MainWindowTest, ACloseThatCannotSaveOffersToTryAgainOrToQuitWithoutSaving) {
    SeedStore();
    StartWindow();
    QSignalSpy closed(m_window.get(), &frmMain::Closed);
    const QByteArray stored = ReadFile(m_state.Store.FilePath());
    {
        const FileSizeLimit fullDisk(0);
        m_prompts.AnswerMessage(PromptAnswer::Yes);    // try again
        m_prompts.AnswerMessage(PromptAnswer::Cancel); // keep Lumbra open
        m_window->close();
        EXPECT_TRUE(m_window->isVisible() && closed.count() == 0);
        EXPECT_EQ(m_prompts.AskedTexts(),
                  QStringList(2, "Could not save the settings to " + m_state.Store.FilePath() +
                                     ": File too large\r\n\r\nTry again? No quits without "
                                     "saving; Cancel keeps Lumbra open."));
        EXPECT_EQ(m_prompts.Asked().first().icon, PromptIcon::Critical);

        m_prompts.AnswerMessage(PromptAnswer::No);
        m_window->close();
        EXPECT_EQ(closed.count(), 1);
    }
    EXPECT_EQ(ReadFile(m_state.Store.FilePath()), stored);
}

TEST_F(MainWindowTest, LayoutFollowsTheSnapshotSettingAndShowsTheSnapshot) {
    SeedStore();
    m_state.Store.Write("Settings", "Snapshots_Show", "7");
    m_state.Store.Sync();
    StartWindow();

    // An unknown value keeps the layout with the picture; a resize lays the window out again.
    auto* picture = Control<QLabel>("picSnapshot");
    auto* list = List();
    const QWidget* inner = m_window->centralWidget();
    for (const QSize size : {QSize(700, 500), QSize(640, 420)}) {
        m_window->resize(size);
        QCoreApplication::processEvents();
        EXPECT_TRUE(picture->isVisible());
        EXPECT_EQ(picture->x(), inner->width() - picture->width() - 5);
        EXPECT_EQ(list->geometry(), QRect(5, 61, picture->x() - 10, inner->height() - 66));
    }
    m_state.Options.Snapshots_Show = 0;
    m_window->Form_Resize();
    EXPECT_FALSE(picture->isVisible());
    EXPECT_EQ(list->width(), inner->width() - 10);

    m_state.Options.Snapshots_Show = 1;
    m_window->Form_Resize();
    EXPECT_TRUE(picture->isVisible());
    m_state.Options.SnapshotFolder = MakeFolder("Shots");
    ASSERT_TRUE(QImage(32, 28, QImage::Format_RGB32).save(TempPath("Shots/zelda.bmp")));
    ChooseGroup("RPG");
    EXPECT_TRUE(picture->pixmap().isNull()); // Tetris has no snapshot
    QTest::keyClick(list, Qt::Key_Down);
    // Decoded once the event loop runs, at a whole step of its size that fits the pane.
    ASSERT_TRUE(QTest::qWaitFor([picture] { return !picture->pixmap().isNull(); }, 60000));
    const QSize shown = picture->pixmap().size();
    EXPECT_EQ(shown.width() % 32, 0);
    EXPECT_EQ(shown.width() * 28, shown.height() * 32); // its own shape
    const QSize room = picture->contentsRect().size();
    EXPECT_TRUE(shown.width() <= room.width() && shown.height() <= room.height());

    // A larger window gives the pane, and the picture, more room.
    m_window->resize(m_window->size() + QSize(300, 300));
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture->pixmap().width() > shown.width(); }, 60000));
}

TEST_F(MainWindowTest, AHugeCaptionAndAFullCatalogueLeaveAUsableWindow) {
    const QString folder = MakeFolder("Full") + '/';
    for (int i = 0; i <= GameList::Capacity; ++i)
        WriteFile(QStringLiteral("Full/g%1.smc").arg(i, 4, 10, QLatin1Char('0')));
    const QString huge(10 * 1024 * 1024, QLatin1Char('W'));
    m_state.Store.Write("Game List\\" + folder.toLower(), "g0001.smc", huge + ";Ungrouped");
    m_state.Store.Write("Folders\\Game Folders", "00", folder);
    m_state.Store.Sync();
    StartWindow();

    auto* list = List();
    // A caption of ten million characters is listed short (and last) and still finds its game.
    ASSERT_EQ(list->count(), GameList::Capacity);
    const int last = GameList::Capacity - 1;
    EXPECT_LT(list->item(last)->text().size(), 1000);
    EXPECT_TRUE(list->item(last)->text().startsWith("WWW"));
    list->scrollToBottom();
    ClickLine(list, last);
    EXPECT_TRUE(Status().endsWith("Never played   |   " + folder + "g0001.smc"));
    // The file that found no place is told in the status bar.
    EXPECT_TRUE(Control<QLabel>("lblScanReport")->isVisible());
    EXPECT_EQ(Control<QLabel>("lblScanReport")->text(),
              "The catalogue is full (1,000 games): 1 file left out.");
}

TEST_F(MainWindowTest, NormalPlacementSurvivesAMaximisedRun) {
    StartWindow();
    m_window->setGeometry(60, 75, 600, 450);
    m_window->close();
    EXPECT_EQ(SettingsStore().Read("Settings", "MainForm"), "900;1125;9000;6750;0");

    // The next run ends maximised, the one after starts so and ends normal.
    for (const QString state : {"2", "0"}) {
        m_window.reset();
        m_state.Options = Settings();
        StartWindow();
        EXPECT_EQ(m_window->normalGeometry().size(), QSize(600, 450));
        state == "2" ? m_window->showMaximized() : m_window->showNormal();
        QTest::qWait(20);
        m_window->close();
        EXPECT_EQ(SettingsStore().Read("Settings", "MainForm"), "900;1125;9000;6750;" + state);
    }
}

TEST_F(MainWindowTest, AFirstRunOffersTheBestFoundEmulatorOnceAsTheDefault) {
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

TEST_F(MainWindowTest, NoFoundEmulatorIsOfferedWhenOneOfTheThreeIsSetUp) {
    AppState seed;
    DefineEmulators(seed.Emulators, seed.Store);
    seed.Options = DefaultSettings();
    seed.Emulators.Records[1].Folder = "/emus/snes9x/";
    SaveEverything(seed);
    StartWithMednafen();
    EXPECT_TRUE(m_prompts.Asked().isEmpty());
}

} // namespace
