#include "platform/PathResolver.h"
#include "platform/ShortPath.h"
#include "support/EnvironmentChange.h"
#include "support/FilesAnywhere.h"
#include "support/TestFixtures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

using PathTest = LumbraTest;

TEST_F(PathTest, ResolverMatchesEachComponentWithoutRegardToCaseAndShortPathsAlias) {
    const QString file = WriteFile("SNES Roms/Zelda/Link.SMC", "x");
    PathResolver resolver;
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/zelda/link.smc")), file);
    EXPECT_EQ(resolver.Resolve(TempPath("SNES Roms\\ZELDA\\link.smc")), file);
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/zelda/")), TempPath("SNES Roms/Zelda/"));
    EXPECT_EQ(resolver.Resolve(TempPath("snes roms/none.smc")), QString());
    EXPECT_TRUE(resolver.IsFile(TempPath("snes roms/zelda/LINK.smc")));
    EXPECT_FALSE(resolver.IsFile(TempPath("snes roms/zelda")));

    // Short paths are lower-case, blank-free aliases.
    const QString game = WriteFile("My Games/Super Mario.SMC", "mario");
    const QString shortPath = GetShortPath(game);
    EXPECT_TRUE(shortPath.endsWith("/super_mario.smc"));
    EXPECT_FALSE(shortPath.contains(' ') || shortPath != shortPath.toLower());
    EXPECT_EQ(QFileInfo(shortPath).canonicalFilePath(), QFileInfo(game).canonicalFilePath());
    EXPECT_EQ(GetShortPath(game.toLower()), shortPath); // reused, found through any case
    EXPECT_EQ(GetShortPath(TempPath("My Games/missing.smc")), QString());
}

// The links live in a private folder under XDG_RUNTIME_DIR, checked before each use.
TEST_F(PathTest, ShortPathLinksLiveInAPrivateFolderAndGoWhenPlayEnds) {
    const QString runtime =
        QDir::tempPath() + "/lumbra-runtime-" + QString::number(QCoreApplication::applicationPid());
    QDir(runtime).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(runtime));
    const EnvironmentChange runtimeChange("XDG_RUNTIME_DIR", runtime);
    const QString root = runtime + "/lumbra-short";
    const QString file = WriteFile("My Games/Super Mario.SMC", "mario");

    const QString link = GetShortPath(file);
    ASSERT_TRUE(link.startsWith(root + '/')) << link.toStdString();
    EXPECT_EQ(QFileInfo(root).permissions() & QFile::Permissions(0x7077),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    RemoveShortPathLinks();
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(link).path())); // its folder too

    // A root that others can write to, or a link in its place, is refused.
    ::chmod(QFile::encodeName(root).constData(), 0777);
    EXPECT_EQ(GetShortPath(file), QString());
    EXPECT_TRUE(ShortPathFailure().contains("is not a private folder"))
        << ShortPathFailure().toStdString();
    ASSERT_TRUE(QDir(root).removeRecursively());
    const QString elsewhere = MakeFolder("elsewhere");
    ASSERT_TRUE(QFile::link(elsewhere, root));
    EXPECT_EQ(GetShortPath(file), QString());
    EXPECT_EQ(QDir(elsewhere).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
    QFile::remove(root);

    // Only Lumbra's own links are replaced in it.
    const QString inTheWay = GetShortPath(file);
    RemoveShortPathLinks();
    ASSERT_TRUE(WriteFileAt(inTheWay, "keep me"));
    EXPECT_EQ(GetShortPath(file), QString());
    EXPECT_TRUE(ShortPathFailure().contains("left as it is"));
    EXPECT_EQ(ReadFile(inTheWay), "keep me");
    QDir(runtime).removeRecursively();
}

} // namespace
