#include "support/TestFixtures.h"

#include "emulators/EmulatorCatalogue.h"

namespace {

QStringList Names(const EmulatorCatalogue& catalogue) {
    QStringList names;
    for (const CatalogueEntry& entry : catalogue.Entries)
        names.append(entry.Name);
    return names;
}

TEST_F(LumbraTest, TheBuiltInCatalogueKnowsTheLinuxEmulators) {
    const EmulatorCatalogue catalogue = LoadEmulatorCatalogue({BuiltInCatalogueFile()});
    EXPECT_EQ(catalogue.Problems, QStringList());
    EXPECT_EQ(Names(catalogue),
              QStringList({"RetroArch", "Mednafen", "snes9x-gtk", "bsnes", "ares", "Mesen"}));

    // Found in any case; detection and the files tests read the entries themselves.
    EXPECT_NE(catalogue.Find("retroarch"), nullptr);
    EXPECT_EQ(catalogue.Find("Snes9X"), nullptr); // Lumbra's own is not in the catalogue
}

TEST_F(LumbraTest, APlayersFileReplacesTheKeysItGivesAndSaysWhatItLeftOut) {
    const QString own = WriteFile("own.json", R"({
      "flatpakExports": ["/opt/exports"],
      "emulators": [
        {"name": "retroarch", "coreFolders": ["/opt/cores"]},
        {"name": "bsnes", "disabled": true},
        {"name": "My Emu", "find": [{"program": "myemu"}], "command": ["{program}", "{game}"]},
        {"name": "ZSNES", "find": [{"program": "zsnes"}], "command": ["{program}", "{game}"]},
        {"name": "No Program", "find": [{"program": "b"}], "command": ["b", "{game}"]},
        {"name": "Two Kinds", "find": [{"program": "c", "file": "/c"}], "command": ["{program}", "{game}"]},
        {"name": "Bad Slots", "find": [{"program": "d"}], "command": ["{program}", "{game}"],
         "states": {"slots": {"first": 0, "last": 9}}},
        {"name": "Huge Slots", "find": [{"program": "e"}], "command": ["{program}", "{game}"],
         "states": {"slots": {"first": -2147483648, "last": 2147483647, "name": "{slot}"}}},
        {"find": [{"program": "nameless"}]}
      ]})");
    const QString broken = WriteFile("broken.json", "{\"emulators\": [");
    const QString list = WriteFile("list.json", "[]");
    const EmulatorCatalogue catalogue =
        LoadEmulatorCatalogue({BuiltInCatalogueFile(), own, broken, list, TempPath("none.json")});

    EXPECT_EQ(Names(catalogue),
              QStringList({"RetroArch", "Mednafen", "snes9x-gtk", "ares", "Mesen", "My Emu"}));
    EXPECT_EQ(catalogue.FlatpakExports, QStringList{"/opt/exports"});
    const CatalogueEntry* retroarch = catalogue.Find("RetroArch");
    EXPECT_EQ(retroarch->CoreFolders, QStringList{"/opt/cores"});
    EXPECT_EQ(retroarch->Find.first().Target, "retroarch"); // the keys not given stay

    const QString problems = catalogue.Problems.join('\n');
    EXPECT_EQ(catalogue.Problems.size(), 9) << problems.toStdString();
    for (const QString& expected : QStringList{
             own + ": an entry without a \"name\" was left out",
             "Emulator \"ZSNES\" left out: the name belongs to one of Lumbra's own three emulators",
             "Emulator \"No Program\" left out: \"command\" must start with \"{program}\"",
             "Emulator \"Two Kinds\" left out: each \"find\" rule names one",
             "Emulator \"Bad Slots\" left out: \"slots\" needs a \"name\"",
             "Emulator \"Huge Slots\" left out: \"slots\" start at a number from 0 to 999",
             broken + ": ", list + ": not a catalogue", TempPath("none.json") + ": "})
        EXPECT_TRUE(problems.contains(expected)) << expected.toStdString();
}

} // namespace
