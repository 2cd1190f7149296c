#include "config/GameFolderList.h"
#include "support/TestFixtures.h"

namespace {

const QString Section = QStringLiteral("Folders\\Game Folders");
QString Folder(int number) {
    return QStringLiteral("/games/Set %1/").arg(number);
}

} // namespace

TEST_F(LumbraTest, GameFolderLimitAndLookups) {
    GameFolderList& folders = m_state.GameFolders;
    for (int i = 0; i < GameFolderList::Capacity; ++i)
        ASSERT_TRUE(folders.AddGameFolder(Folder(i)));
    EXPECT_EQ(folders.FindGameFolderIndex(QStringLiteral("/GAMES/set 42")), 42);
    EXPECT_EQ(folders.FindGameFolderIndex(QString()), -1);

    EnableLog();
    EXPECT_FALSE(folders.AddGameFolder(QStringLiteral("/games/extra/")));
    EXPECT_FALSE(folders.AddGameFolder(QStringLiteral("/GAMES/SET 7/")));
    EXPECT_EQ(LogText(), "\r\nAttempting to add game folder: /games/extra/..."
                         "The maximum number of game folders has been defined."
                         "\r\nAttempting to add game folder: /GAMES/SET 7/...Already Exists!");
}

TEST_F(LumbraTest, GameFolderRemoveExportAndImport) {
    GameFolderList& folders = m_state.GameFolders;
    for (int i = 0; i < 3; ++i) {
        folders.AddGameFolder(Folder(i));
        folders.Entries[i].RomCount = static_cast<qint16>(10 + i);
    }
    ExportGameFolders(m_state, QStringLiteral("reg"), QString());
    EXPECT_EQ(LogText(), QString());

    EnableLog();
    EXPECT_TRUE(folders.RemoveGameFolder(QStringLiteral("/Games/Set 0")));
    EXPECT_FALSE(folders.RemoveGameFolder(QStringLiteral("/x/")));
    EXPECT_EQ(folders.Entries[2].RomCount, 12); // counts stay at their index
    ExportGameFolders(m_state, QStringLiteral("Registry"), QString());
    ExportGameFolders(m_state, QStringLiteral("ini"), QStringLiteral("/tmp/f.ini"));
    const QList<std::pair<QString, QString>> expected{{"00", Folder(1)}, {"01", Folder(2)}};
    EXPECT_EQ(m_state.Store.ListSection(Section), expected); // "02" is gone

    m_state.Store.Write(Section, QStringLiteral("03"), QStringLiteral("/gap/"));
    folders = GameFolderList();
    folders.Entries[5].Path = QStringLiteral("/kept/");
    ImportGameFolders(m_state, QStringLiteral("REG"), QString());
    ImportGameFolders(m_state, QStringLiteral("file"), QStringLiteral("/tmp/f.ini"));
    EXPECT_EQ(folders.Entries[1].Path, Folder(2));
    EXPECT_EQ(folders.Entries[3].Path + folders.Entries[5].Path, QStringLiteral("/kept/"));
    EXPECT_EQ(LogText(), "\r\nAttempting to remove game folder: /Games/Set 0...Success!"
                         "\r\nAttempting to remove game folder: /x/...No game folders have been "
                         "defined!\r\nExporting Game Folder list to: Registry...Done."
                         "\r\nExporting Game Folder List to file: /tmp/f.ini"
                         "\r\nImporting Game Folders from: Registry...Done."
                         "\r\nImporting Game Folders from file: /tmp/f.ini");
}
