#include "ui/QtPrompts.h"
#include "support/TestFixtures.h"

namespace {

TEST(QtPromptsTest, FiltersBecomeQtFiltersWithTheirFirstExtensionAsTheDefault) {
    EXPECT_EQ(ConvertFileFilter("SNES Images|*.smc;*.sfc|All Files|*.*"),
              "SNES Images (*.smc *.sfc);;All Files (*.*)");
    // Patterns that the description already shows are not repeated.
    EXPECT_EQ(ConvertFileFilter("Bitmap Image (*.bmp)|*.bmp|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg"),
              "Bitmap Image (*.bmp);;JPEG (*.jpg *.jpeg)");
    EXPECT_EQ(ConvertFileFilter("HTML|*.htm;*.html|"), "HTML (*.htm *.html)");
    EXPECT_EQ(ConvertFileFilter("Anything"), "Anything (*)");
    EXPECT_EQ(ConvertFileFilter(QString()), QString());
    // A name typed without extension gets the filter's first extension.
    EXPECT_EQ(DefaultSuffix(ConvertFileFilter("HTML (*.html;*.htm)|*.html;*.htm")), "html");
    EXPECT_EQ(DefaultSuffix("All Files (*.*)"), QString());
}

using StartFolderTest = LumbraTest;

TEST_F(StartFolderTest, DialogsOpenAtTheFieldsFolderWhenItExists) {
    const QString games = MakeFolder("My Games");
    EXPECT_EQ(StartFolder(games + '/'), games);
    EXPECT_EQ(StartFolder(games + "/not there yet.png"), games); // a file's folder
    EXPECT_EQ(StartFolder(TempPath("Gone/shot.png")), QString());
    EXPECT_EQ(StartFolder(TempPath("Gone")), TempPath()); // as far up as it exists
    EXPECT_EQ(StartFolder("snes9x"), QString());          // a bare name has no folder
    EXPECT_EQ(StartFolder(QString()), QString());
}

} // namespace
