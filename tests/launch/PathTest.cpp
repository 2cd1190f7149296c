#include "config/SettingsStore.h"
#include "launch/OsHelpers.h"
#include "launch/PathResolver.h"
#include "support/TestFixtures.h"

#include <QFileInfo>

namespace {

using PathTest = LumbraTest;

TEST_F(PathTest, ResolverMatchesEachComponentWithoutRegardToCase) {
    const QString file = WriteFile(QStringLiteral("SNES Roms/Zelda/Link.SMC"), "x");
    PathResolver resolver;
    EXPECT_EQ(resolver.Resolve(TempPath(QStringLiteral("snes roms/zelda/link.smc"))), file);
    EXPECT_EQ(resolver.Resolve(TempPath(QStringLiteral("SNES Roms\\ZELDA\\link.smc"))), file);
    EXPECT_EQ(resolver.Resolve(TempPath(QStringLiteral("snes roms/zelda/"))),
              TempPath(QStringLiteral("SNES Roms/Zelda/")));
    EXPECT_EQ(resolver.Resolve(TempPath(QStringLiteral("snes roms/none.smc"))), QString());
    EXPECT_TRUE(resolver.IsFile(TempPath(QStringLiteral("snes roms/zelda/LINK.smc"))));
    EXPECT_FALSE(resolver.IsFile(TempPath(QStringLiteral("snes roms/zelda"))));
}

TEST_F(PathTest, ShortPathsAreLowerCaseBlankFreeAliases) {
    const QString file = WriteFile(QStringLiteral("My Games/Super Mario.SMC"), "mario");
    const QString shortPath = GetShortPath(file);
    EXPECT_FALSE(shortPath.contains(QLatin1Char(' ')));
    EXPECT_EQ(shortPath, shortPath.toLower());
    EXPECT_TRUE(shortPath.endsWith(QStringLiteral("/super_mario.smc")));
    EXPECT_EQ(QFileInfo(shortPath).canonicalFilePath(), QFileInfo(file).canonicalFilePath());
    EXPECT_EQ(GetShortPath(file.toLower()), shortPath); // reused, found through any case
    EXPECT_EQ(GetShortPath(TempPath(QStringLiteral("My Games/missing.smc"))), QString());
    EXPECT_TRUE(GetTempFolder().endsWith(QLatin1Char('/')));
}

TEST_F(PathTest, StoreSectionsRoundTripWhateverSeparatorsTheyHold) {
    const QStringList sections{
        "Profiles\\ZSnes", "Folders\\Game Folders",          "Folders",
        "Group List",      "Game List\\/home/me/SNES Roms/", "Game List\\/home/me/%2F/"};
    for (const QString& section : sections)
        m_state.Store.Write(section, QStringLiteral("key/") + section, section);
    m_state.Store.Sync();

    SettingsStore reopened;
    for (const QString& section : sections) {
        const auto pairs = reopened.ListSection(section);
        ASSERT_EQ(pairs.size(), 1) << section.toStdString();
        EXPECT_EQ(pairs.first().first, QStringLiteral("key/") + section);
        EXPECT_EQ(pairs.first().second, section);
    }
    reopened.DeleteSection(QStringLiteral("Folders"));
    EXPECT_TRUE(reopened.ListSection(QStringLiteral("Folders")).isEmpty());
    EXPECT_EQ(reopened.ListSection(QStringLiteral("Folders\\Game Folders")).size(), 1);
    EXPECT_EQ(reopened.Read(QStringLiteral("Group List"), QStringLiteral("absent"),
                            QStringLiteral("dflt")),
              QStringLiteral("dflt"));
}

} // namespace
