#include "support/TestFixtures.h"

#include "export/ExportPrefs.h"

namespace {

using ExportPrefsTest = LumbraTest;

TEST_F(ExportPrefsTest, PrefsRoundTripThroughTheStoreUnderTheirKeys) {
    ExportPrefs prefs;
    prefs.ExportMethod = 3;
    prefs.GroupIndex = 2;
    prefs.FilePatterns << "*mario*";
    prefs.FilePatternIndex = 7;
    prefs.SortMethod = 2;
    prefs.WriteOrder = {5, 4, 3, 2, 1, 0};
    prefs.WriteOrderChecked = {true, false, true, false, true, false};
    prefs.FileFormat = 1;
    SaveExportPrefs(m_state.Store, prefs);

    const SettingsStore store;
    const auto read = [&store](const QString& key) { return store.Read(ExportPrefsSection, key); };
    EXPECT_EQ(read("optExportMethod"), "3");
    EXPECT_EQ(read("cboGroups"), "2");
    EXPECT_EQ(read("File Pattern 00"), "*.058");
    EXPECT_EQ(read("File Pattern 07"), "*mario*");
    EXPECT_EQ(read("cboFilePatterns"), "7");
    EXPECT_EQ(read("cboWriteOrder0"), "5");
    EXPECT_EQ(read("chkWriteOrder1"), "0");
    EXPECT_EQ(read("optFileFormat"), "1");

    const ExportPrefs loaded = LoadExportPrefs(store);
    EXPECT_EQ(loaded.FilePatterns, prefs.FilePatterns);
    EXPECT_EQ(loaded.WriteOrder, prefs.WriteOrder);
    EXPECT_EQ(loaded.WriteOrderChecked, prefs.WriteOrderChecked);
    EXPECT_EQ(std::tie(loaded.ExportMethod, loaded.GroupIndex, loaded.FilePatternIndex,
                       loaded.SortMethod, loaded.FileFormat),
              std::tie(prefs.ExportMethod, prefs.GroupIndex, prefs.FilePatternIndex,
                       prefs.SortMethod, prefs.FileFormat));
}

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
