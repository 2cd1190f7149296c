#include "rom/QzZipFiles.h"
#include "ZipFixture.h"
#include "rom/QzUnzipFiles.h"

#include <QFile>

using QzZipFilesTest = ZipFixture;

TEST_F(QzZipFilesTest, TheListRefusesRepeatsAndStrangers) {
    const auto text = [](const std::optional<QzZipError>& error) {
        return error ? error->Description + " / " + error->Source : QString();
    };
    QzZipFiles zip(m_prompts);
    EXPECT_EQ(text(zip.AddFile("a.smc")), "");
    EXPECT_EQ(text(zip.AddFile("a.smc")), "File is already in Zip List / QzZip::AddFile");
    EXPECT_EQ(zip.ZipFileCount(), 1);
    EXPECT_EQ(text(zip.RemoveFile("a.smc")), "");
    EXPECT_EQ(text(zip.RemoveFile("a.smc")), "File is not in Zip List / QzZip::RemoveFile");
    EXPECT_EQ(zip.MakeZipFile(), ZipNothingToDo);

    // A missing file, or a cancelled password, leaves no archive.
    zip.ZipFileName = TempPath("games/failed.zip");
    EXPECT_FALSE(zip.AddFile(TempPath("missing.smc")));
    EXPECT_EQ(zip.MakeZipFile(), ZipCannotRead);
    EXPECT_EQ(zip.GetLastMessage(), TempPath("missing.smc") + ": cannot be read");
    EXPECT_FALSE(zip.RemoveFile(TempPath("missing.smc")));
    EXPECT_FALSE(zip.AddFile(WriteFile("game.smc", "g")));
    zip.Encrypted = true;
    m_prompts.AnswerInput(std::nullopt);
    EXPECT_EQ(zip.MakeZipFile(), ZipCancelled);
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList("Please Enter The Password!"));
    EXPECT_FALSE(QFile::exists(zip.ZipFileName));
}

TEST_F(QzZipFilesTest, EntriesAreStoredRelativeToTheRoot) {
    WriteFile("src/sub/b.smc", "b");
    WriteFile("src/sub/.hidden", "h");
    const QString outsideRoot = WriteFile("outside/c.smc", "c");
    // Recursing, hidden files, the listing.
    const std::tuple<bool, bool, QString> cases[] = {
        {false, false, "sub/ (0 bytes)\r\nc.smc (1 bytes)"},
        {true, false, "sub/ (0 bytes)\r\nsub/b.smc (1 bytes)\r\nc.smc (1 bytes)"},
        {true, true,
         "sub/ (0 bytes)\r\nsub/.hidden (1 bytes)\r\nsub/b.smc (1 bytes)\r\nc.smc (1 bytes)"}};
    for (const auto& [recurse, hidden, listing] : cases) {
        QzZipFiles zip(m_prompts);
        zip.RootDirectory = TempPath("src");
        zip.ZipFileName = TempPath("games/made.zip");
        zip.RecurseFolders = recurse;
        zip.IncludeSystemFiles = hidden;
        EXPECT_FALSE(zip.AddFile("sub") || zip.AddFile(outsideRoot));
        EXPECT_EQ(zip.MakeZipFile(), ZipOk);

        QzUnzipFiles unzip(m_state.Unzip, m_prompts);
        unzip.ExtractList = 1;
        EXPECT_EQ(unzip.Unzip(zip.ZipFileName), UnzipOk);
        EXPECT_EQ(unzip.GetLastMessage(), listing);
    }
}
