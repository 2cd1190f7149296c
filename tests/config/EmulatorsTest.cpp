#include "config/Emulators.h"
#include "config/Profiles.h"
#include "support/TestFixtures.h"

TEST_F(LumbraTest, DefineEmulatorsReadsTheStoreAndLogs) {
    m_state.Store.Write("Emulators", "ZSnes", "/emu/zsnes/;/emu/saves/");
    EnableLog();
    DefineEmulators(m_state);
    EXPECT_EQ(LogText(), "\r\nEmulator Defined: Nlke\r\nEmulator Defined: Snes9X"
                         "\r\nEmulator Defined: ZSnes");
    const EmulatorTable& table = m_state.Emulators;
    EXPECT_EQ(table.FindEmulatorIndex(QStringLiteral("zsnes")), 2);
    EXPECT_EQ(table.FindEmulatorIndex(QString()), -1);
    EXPECT_EQ(table.FindEmulatorIndex(QStringLiteral("Default")), -1);
    EXPECT_EQ(table.Records[2].Folder + table.Records[2].SaveFolder, "/emu/zsnes//emu/saves/");
#ifndef Q_OS_WIN
    EXPECT_EQ(table.Records[2].LaunchFiles,
              "zsnes.pif;zsnes.lnk;zsnes.bat;zsnes.exe;zsnes;zsnes.sh");
#endif
}

TEST_F(LumbraTest, ProfileMenuListsSortsTicksAndKeepsItems) {
    for (const char* name : {"fast", "Basic", "clean"})
        WriteProfile(m_state.Store, QStringLiteral("Snes9X"), name, QStringLiteral("-opt"));
    WriteProfile(m_state.Store, QStringLiteral("ZSnes"), QStringLiteral("Zeta"), "-m");
    EXPECT_EQ(ReadProfile(m_state.Store, "ZSnes", "Zeta"), QStringLiteral("-m"));

    ProfileMenuModel menu;
    GameRecord game;
    const auto build = [&](const char* emulator, const char* profile) {
        game.Emulator = emulator;
        game.Profile = profile;
        menu.Build(m_state.Store, game);
        QStringList captions; // "*" ticked, "-" disabled
        for (const ProfileMenuItem& item : menu.Items())
            captions << item.Caption + (item.Checked ? "*" : "") + (item.Enabled ? "" : "-");
        return captions;
    };
    EXPECT_EQ(build("Default", ""), QStringList{"<no profiles found>-"});
    EXPECT_EQ(build("snes9x", "BASIC"), (QStringList{"Basic*", "clean", "fast"}));
    EXPECT_EQ(build("ZSNES", "Fast"), (QStringList{"Zeta", "clean", "fast*"}));
    EXPECT_EQ(build("", "ZETA"), (QStringList{"Zeta*", "clean", "fast"}));
}
