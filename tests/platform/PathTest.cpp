#include "config/SettingsStore.h"
#include "platform/OsHelpers.h"
#include "platform/PathResolver.h"
#include "support/TestFixtures.h"

#include <QFileInfo>

namespace {

using PathTest = LumbraTest;

TEST_F(PathTest, ResolverMatchesEachComponentWithoutRegardToCase) {
    const QString file = WriteFile("SNES Roms/Zelda/Link.SMC", "x");
    PathResolver resolver;
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/zelda/link.smc")), file);
    EXPECT_EQ(resolver.Resolve(TempPath("SNES Roms\\ZELDA\\link.smc")), file);
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/zelda/")), TempPath("SNES Roms/Zelda/"));
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/none.smc")), QString());
    EXPECT_TRUE(resolver.IsFile(TempPath("snes roms/zelda/LINK.smc")));
    EXPECT_FALSE(resolver.IsFile(TempPath("snes roms/zelda")));
}

TEST_F(PathTest, ShortPathsAreLowerCaseBlankFreeAliases) {
    const QString file = WriteFile("My Games/Super Mario.SMC", "mario");
    const QString shortPath = GetShortPath(file);
    EXPECT_TRUE(shortPath.endsWith("/super_mario.smc"));
    EXPECT_FALSE(shortPath.contains(' ') || shortPath != shortPath.toLower());
    EXPECT_EQ(QFileInfo(shortPath).canonicalFilePath(), QFileInfo(file).canonicalFilePath());
    EXPECT_EQ(GetShortPath(file.toLower()), shortPath); // reused, found through any case
    EXPECT_EQ(GetShortPath(TempPath("My Games/missing.smc")), QString());
    EXPECT_TRUE(GetTempFolder().endsWith('/'));
}

TEST_F(PathTest, StoreSectionsRoundTripWhateverSeparatorsTheyHold) {
    const QStringList sections{
        "Profiles\\ZSnes", "Folders\\Game Folders",          "Folders",
        "Group List",      "Game List\\/home/me/SNES Roms/", "Game List\\/home/me/%2F/"};
    for (const QString& section : sections)
        m_state.Store.Write(section, "key/" + section, section);
    m_state.Store.Sync();

    SettingsStore reopened;
    for (const QString& section : sections)
        EXPECT_EQ(reopened.ListSection(section),
                  (QList<std::pair<QString, QString>>{{"key/" + section, section}}));
    reopened.DeleteSection("Folders");
    EXPECT_TRUE(reopened.ListSection("Folders").isEmpty());
    EXPECT_EQ(reopened.ListSection("Folders\\Game Folders").size(), 1);
    EXPECT_EQ(reopened.Read("Group List", "absent", "dflt"), "dflt");
}

} // namespace
