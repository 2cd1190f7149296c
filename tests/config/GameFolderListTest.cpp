#include "config/GameFolderList.h"
#include "support/TestFixtures.h"

TEST_F(LumbraTest, GameFoldersAddRemoveExportAndImport) {
    const auto folder = [](int number) { return QStringLiteral("/games/Set %1/").arg(number); };
    GameFolderList& folders = m_state.GameFolders;
    for (int i = 0; i < GameFolderList::Capacity; ++i)
        ASSERT_TRUE(folders.AddGameFolder(folder(i)));
    folders.Entries[98].RomCount = 5;
    ExportGameFolders(m_state.Store, m_state.GameFolders, "reg", QString());

    // Nothing above is logged: the log exists only in debug mode. Lookups ignore case
    // and add the trailing separator; the file target only logs.
    EnableLog();
    EXPECT_FALSE(folders.AddGameFolder("/games/extra/"));
    EXPECT_FALSE(folders.AddGameFolder("/GAMES/SET 7/"));
    EXPECT_TRUE(folders.RemoveGameFolder("/Games/Set 0"));
    EXPECT_FALSE(folders.RemoveGameFolder("/x/"));
    ExportGameFolders(m_state.Store, m_state.GameFolders, "ini", "/tmp/f.ini");
    ImportGameFolders(m_state.Store, m_state.GameFolders, "file", "/tmp/f.ini");
    EXPECT_EQ(LogText(),
              "\r\nAttempting to add game folder: /games/extra/...The maximum number of game "
              "folders has been defined.\r\nAttempting to add game folder: /GAMES/SET 7/...Already "
              "Exists!\r\nAttempting to remove game folder: /Games/Set 0...Success!\r\nAttempting "
              "to remove game folder: /x/...No game folders have been defined!\r\nExporting Game "
              "Folder List to file: /tmp/f.ini\r\nImporting Game Folders from file: /tmp/f.ini");

    // The paths move up; each count stays at its index. The export drops key "99".
    EXPECT_EQ(folders.Entries[98].Path + folders.Entries[99].Path, folder(99));
    EXPECT_EQ(folders.Entries[98].RomCount, 5);
    ExportGameFolders(m_state.Store, m_state.GameFolders, "Registry", QString());
    EXPECT_EQ(m_state.Store.ListSection("Folders\\Game Folders").size(), 99);

    // Import reads the packed keys and stops at the first missing one; later entries
    // keep what they held.
    m_state.Store.Write("Folders\\Game Folders", "50", "");
    folders = GameFolderList();
    folders.Entries[51].Path = "/kept/";
    ImportGameFolders(m_state.Store, m_state.GameFolders, "REG", QString());
    EXPECT_EQ(folders.Entries[49].Path + folders.Entries[50].Path + folders.Entries[51].Path,
              folder(50) + "/kept/");
}
