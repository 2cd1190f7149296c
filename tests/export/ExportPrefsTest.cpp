#include "support/TestFixtures.h"

#include "export/ExportPrefs.h"

namespace {

// The keys and the round trip through the dialog are checked with the dialog.
using ExportPrefsTest = LumbraTest;

TEST_F(ExportPrefsTest, HandEditedValuesFallBackToTheDefaults) {
    // "Group" twice in the write order; a pattern index past the one stored pattern.
    const QList<std::pair<QString, QString>> stored = {
        {"optExportMethod", "4"}, {"cboSortMethods", "two"}, {"optFileFormat", "-1"},
        {"cboWriteOrder0", "1"},  {"chkWriteOrder3", "0"},   {"File Pattern 00", "*.bin"},
        {"cboFilePatterns", "1"}};
    for (const auto& [key, value] : stored)
        m_state.Store.Write(ExportPrefsSection, key, value);
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
