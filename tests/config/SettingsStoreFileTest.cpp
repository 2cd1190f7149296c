#include "base/Progress.h"
#include "catalogue/GameList.h"
#include "config/SettingsStore.h"
#include "support/FilesAnywhere.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

using SettingsStoreFileTest = LumbraTest;

// Sections and keys as the store has always named them in QSettings: "/" and "%"
// escaped, so that a folder path stays one section.
QString QSettingsName(const QString& section, const QString& key) {
    const auto encode = [](QString text) { return text.replace('%', "%25").replace('/', "%2F"); };
    return encode(section) + '/' + encode(key);
}

// Texts that the file must escape, quote or mark: separators, quotes, blanks at
// the ends, a leading "@", control characters, letters beyond ASCII, a lone half
// of a surrogate pair.
const QList<std::tuple<QString, QString, QString>> AwkwardEntries = {
    {"Game List\\/home/me/SNES Roms/", "mario world.smc", "Mario;Ungrouped;Default;Default"},
    {"Game List\\/home/me/SNES Roms/", "zelda.sfc", "Zelda, the Past = best;RPG;ZSnes;Fast"},
    {"Game List\\/home/me/100%2F Spiele/", "über.smc", "Über \"Quoted\" \\ back;x;y;z"},
    {"Game List\\/home/me/100%2F Spiele/", "@tab.smc", "@start\tand\r\nlines\x01 "},
    {"Folders\\Game Folders", "00", " /home/me/SNES Roms/ "},
    {"Folders", "key/Snes9X", "/emu/;/saves/;"},
    {"Group List", "00", "😀 Favourites"},
    {"Settings", "Snapshots_NoSnapPic", QString("half ") + QChar(0xD83D) + "pair"},
    {"Settings", "SPC_App", "zdspc.exe;"},
    {"Settings", "Empty", ""},
    {"Profiles\\ZSnes", "Fast", "@@two"},
};

TEST_F(SettingsStoreFileTest, TheFileIsByteForByteWhatQSettingsWritesAndReads) {
    const QString qtFile = TempPath("qsettings.conf");
    {
        QSettings settings(qtFile, QSettings::IniFormat);
        for (const auto& [section, key, value] : AwkwardEntries) {
            m_state.Store.Write(section, key, value);
            settings.setValue(QSettingsName(section, key), value);
        }
        settings.sync();
    }
    m_state.Store.Sync();
    EXPECT_EQ(
        m_state.Store.FilePath(),
        QSettings(QSettings::NativeFormat, QSettings::UserScope, "Lumbra", "Lumbra").fileName());
    const QByteArray written = ReadFile(m_state.Store.FilePath());
    EXPECT_EQ(written, ReadFile(qtFile));
    EXPECT_TRUE(written.contains("[Game%20List%5C%252Fhome%252Fme%252FSNES%20Roms%252F]\n"));

    // Each reads the other's file: QSettings this store's, the store QSettings' own
    // after a change there (the store reads a file again that another wrote).
    ASSERT_TRUE(QFile::copy(m_state.Store.FilePath(), TempPath("copy.conf")));
    QSettings reader(TempPath("copy.conf"), QSettings::IniFormat);
    {
        QSettings settings(qtFile, QSettings::IniFormat);
        settings.setValue(QSettingsName("Settings", "DefaultGroup"), "Puzzle, Logic");
    }
    ASSERT_TRUE(QFile::remove(m_state.Store.FilePath()));
    ASSERT_TRUE(QFile::copy(qtFile, m_state.Store.FilePath()));
    const SettingsStore reopened;
    for (const auto& [section, key, value] : AwkwardEntries) {
        const QString expected = reader.value(QSettingsName(section, key)).toString();
        EXPECT_EQ(expected, reopened.Read(section, key, "absent")) << key.toStdString();
        if (!value.contains(QChar(0xD83D))) {
            EXPECT_EQ(expected, value);
        }
    }
    EXPECT_EQ(m_state.Store.Read("Settings", "DefaultGroup"), "Puzzle, Logic");
    EXPECT_EQ(
        reopened.ListSection("Game List\\/home/me/SNES Roms/"),
        (QList<std::pair<QString, QString>>{{"mario world.smc", std::get<2>(AwkwardEntries[0])},
                                            {"zelda.sfc", std::get<2>(AwkwardEntries[1])}}));
    EXPECT_EQ(reopened.Sections(),
              (QStringList{"Folders", "Folders\\Game Folders", "Game List\\/home/me/100%2F Spiele/",
                           "Game List\\/home/me/SNES Roms/", "Group List", "Profiles\\ZSnes",
                           "Settings"}));
    // A section goes alone, not the sections whose names begin with it.
    m_state.Store.DeleteSection("Folders");
    EXPECT_EQ(m_state.Store.Sections().first(), "Folders\\Game Folders");
    EXPECT_EQ(m_state.Store.Read("Group List", "absent", "dflt"), "dflt");
}

TEST_F(SettingsStoreFileTest, EditedFilesReadAsQSettingsReadsThem) {
    const QByteArray edited =
        "; kept by hand\n[Settings]\nDefaultGroup = RPG  ; comment\n"
        "MainForm=\"1;2;3;4\"\nUseBaseFilenames=1\nSPC_App=a, b\n"
        "Snapshots_Show=@Invalid()\nSPC_OpenWith=@String(%WIN)\n"
        "[Group%20List]\n00=\"Split\\\n Line\"\n[Settings]\nStateClickDeletes=\\x31\n";
    ASSERT_TRUE(WriteFileAt(m_state.Store.FilePath(), edited));
    QSettings qt(m_state.Store.FilePath(), QSettings::IniFormat);
    const SettingsStore store;
    for (const char* key : {"DefaultGroup", "MainForm", "UseBaseFilenames", "SPC_App",
                            "Snapshots_Show", "SPC_OpenWith", "StateClickDeletes"}) {
        const QVariant value = qt.value(QString("Settings/") + key);
        EXPECT_EQ(store.Read("Settings", key, "absent"),
                  value.isValid() ? value.toString() : "absent")
            << key;
    }
    EXPECT_EQ(store.Read("Group List", "00"), qt.value("Group List/00").toString());
    EXPECT_EQ(store.Read("Settings", "DefaultGroup"), "RPG");
}

TEST_F(SettingsStoreFileTest, ASaveThatChangesNothingLeavesTheFileAlone) {
    const QString roms = MakeFolder("SNES Roms");
    for (const char* name : {"Mario.SMC", "zelda.sfc"})
        WriteFile(QString("SNES Roms/") + name, SnesImageBuilder().Title("GAME").Build());
    m_state.GameFolders.AddGameFolder(roms);
    Progress noProgress;
    const auto saveAll = [&] {
        const SettingsStore::Batch oneWrite(m_state.Store);
        RebuildGameList(m_state, noProgress);
        ExportSettings(m_state.Store, m_state.Options, m_state.Emulators, "reg", QString());
        ExportGameFolders(m_state.Store, m_state.GameFolders, "reg", QString());
        ExportGameList(m_state, "reg", QString());
    };
    saveAll();
    const QString path = m_state.Store.FilePath();
    const QByteArray saved = ReadFile(path);
    ASSERT_TRUE(saved.contains("mario.smc=\"Game;Ungrouped;Default;Default\""));

    // Marked with an old time: a write of the file would give it the time of now.
    const QDateTime old = QDateTime::currentDateTime().addYears(-3);
    ASSERT_TRUE(SetModifiedTime(path, old));
    saveAll();
    m_state.Store.Sync();
    EXPECT_EQ(QFileInfo(path).lastModified(), old);
    EXPECT_EQ(ReadFile(path), saved);
    EXPECT_FALSE(QFileInfo::exists(path + ".lock"));

    // Writing a value back as it was is no change either; a new value is saved.
    m_state.Store.Write("Settings", "DefaultGroup", "Puzzle");
    m_state.Store.Write("Settings", "DefaultGroup", m_state.Options.DefaultGroup);
    m_state.Store.Sync();
    EXPECT_EQ(QFileInfo(path).lastModified(), old);
    m_state.Games.Records[1].Caption = "Zelda";
    ExportGameList(m_state, "reg", QString());
    EXPECT_NE(QFileInfo(path).lastModified(), old);
    EXPECT_TRUE(ReadFile(path).contains("zelda.sfc=\"Zelda;Ungrouped;Default;Default\""));
}

TEST_F(SettingsStoreFileTest, StoresOfOneProcessShareTheirChangesAtOnce) {
    SettingsStore other;
    m_state.Store.Write("Group List", "00", "Puzzle");
    EXPECT_EQ(other.Read("Group List", "00"), "Puzzle"); // before any save
    other.DeleteSection("Group List");
    EXPECT_FALSE(m_state.Store.Contains("Group List", "00"));
    EXPECT_FALSE(ReadFile(m_state.Store.FilePath()).contains("Puzzle")); // nothing saved yet
    other.Write("Settings", "DefaultGroup", "RPG");
    other.Sync();
    EXPECT_EQ(SettingsStore().Read("Settings", "DefaultGroup"), "RPG");
    EXPECT_EQ(ReadFile(m_state.Store.FilePath()), "[Settings]\nDefaultGroup=RPG\n");
}

} // namespace
