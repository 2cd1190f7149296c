#include "support/TestFixtures.h"

#include "export/ExportPrefs.h"

namespace {

// The keys and the round trip through the dialog are checked with the dialog.
using ExportPrefsTest = LumbraTest;

TEST_F(ExportPrefsTest, HandEditedValuesFallBackToTheDefaults) {
    const auto write = [this](const QString& key, const QString& value) {
        m_state.Store.Write(ExportPrefsSection, key, value);
    };
    write("optExportMethod", "4");
    write("cboSortMethods", "two");
    write("optFileFormat", "-1");
    write("cboWriteOrder0", "1"); // "Group" twice
    write("chkWriteOrder3", "0");
    write("File Pattern 00", "*.bin");
    write("cboFilePatterns", "1"); // past the one stored pattern
    const ExportPrefs loaded = LoadExportPrefs(m_state.Store);
    const ExportPrefs defaults;
    EXPECT_EQ(loaded.ExportMethod, 0);
    EXPECT_EQ(loaded.SortMethod, 0);
    EXPECT_EQ(loaded.FileFormat, 0);
    EXPECT_EQ(loaded.WriteOrder, defaults.WriteOrder);
    EXPECT_FALSE(loaded.WriteOrderChecked[3]);
    EXPECT_EQ(loaded.FilePatterns, QStringList{"*.bin"});
    EXPECT_EQ(loaded.FilePatternIndex, 0);

    // List indexes out of range select the first entry.
    m_state.GameFolders.AddGameFolder("/games/snes");
    ExportPrefs prefs;
    prefs.ExportMethod = int(ExportMethod::GameFolder);
    prefs.GameFolderIndex = 42;
    EXPECT_EQ(ChoicesFromPrefs(prefs, m_state).Filter, "/games/snes/");
    prefs.ExportMethod = int(ExportMethod::Group);
    m_state.Groups.AddGroup("RPG");
    prefs.GroupIndex = 1;
    EXPECT_EQ(ChoicesFromPrefs(prefs, m_state).Filter, "RPG");
}

} // namespace
