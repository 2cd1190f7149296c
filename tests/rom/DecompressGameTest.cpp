#include "rom/DecompressGame.h"
#include "ZipFixture.h"
#include "support/SnesImageBuilder.h"

#include "config/Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

class DecompressGameTest : public ZipFixture {
protected:
    QString Decompress(const QString& argument) {
        return DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, argument);
    }

    const QByteArray m_game = SnesImageBuilder::HeaderlessLoRom();
};

} // namespace

TEST_F(DecompressGameTest, ReturnsTheFirstGameImageFlushesEverythingAndListsInDebugMode) {
    const std::pair<Files, QString> cases[] = {
        {{{"readme.txt", "Read me."}, {"game.smc", m_game}}, "game.smc"},
        {{{"roms/snes/GAME.SFC", m_game}}, "GAME.SFC"},
        {{{"notes.1st", "x"}, {"part.1", m_game}, {"disk.058", m_game}}, "part.1"},
        {{{"Game.v1.Fig", m_game}, {"other.swc", m_game}}, "Game.v1.Fig"},
    };
    WriteFile("unzip/keep.txt");
    for (const auto& [files, game] : cases) {
        // The catalogue's lower-case path reaches the archive's real name.
        MakeZip("Mixed.ZIP", files);
        EXPECT_EQ(Decompress(TempPath("games/mixed.zip")), game);
        EXPECT_EQ(UnzipFile(game), m_game);
        EXPECT_EQ(UnzipFolderNames().size(), files.size() + 1) << game.toStdString();
        // The flush, in any letter case, passes over a file already gone.
        QFile::remove(m_unzip + '/' + game);
        EXPECT_EQ(Decompress(game.endsWith("smc") ? "FLUSH" : "Flush"), QString());
        EXPECT_EQ(UnzipFolderNames(), QStringList("keep.txt"));
    }
    EXPECT_TRUE(m_prompts.Asked().isEmpty());

    // Debug mode lists the unzipped files, without control characters; the first
    // game of a name is the one played.
    EnableLog();
    EXPECT_EQ(Decompress(MakeRawZip(
                  "twice.zip",
                  {{"roms/game.smc", m_game}, {"game.smc", "impostor"}, {"bell\x07.txt", "r"}})),
              "game.smc");
    EXPECT_EQ(UnzipFile("game.smc"), m_game);
    EXPECT_EQ(m_prompts.AskedTexts(),
              QStringList("The following files were unzipped:\r\n\r\n0) game.smc\r\n"
                          "1) bell\uFFFD.txt\r\n"));
}

TEST_F(DecompressGameTest, WithoutAGameNothingIsLeftAndNoStaleNameReturns) {
    EXPECT_EQ(Decompress(MakeZip("game.zip", {{"game.smc", m_game}})), "game.smc");
    EXPECT_EQ(Decompress(MakeZip("notes.zip", {{"notes.txt", "x"}})), QString());
    EXPECT_EQ(UnzipFolderNames(), QStringList("game.smc"));
    EXPECT_EQ(m_state.Unzip.UnzippedFiles[0], "notes.txt");
    EXPECT_EQ(m_state.Unzip.UnzippedFiles[1], QString());

    EXPECT_EQ(Decompress(TempPath("games/missing.zip")), QString());
    EXPECT_EQ(m_state.Unzip.UnzippedFiles[0], QString());
    ASSERT_EQ(m_prompts.Asked().size(), 1);
    EXPECT_EQ(m_prompts.Asked()[0].text, TempPath("games/missing.zip") + ": Failed to open '" +
                                             TempPath("games/missing.zip") + "'");
}

TEST_F(DecompressGameTest, DamagedArchivesShowLibarchivesReason) {
    QFile source(MakeZip("good.zip", {{"readme.txt", "r"}, {"game.smc", m_game}}));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QByteArray good = source.readAll();
    const std::pair<QByteArray, QString> cases[] = {
        {good.left(good.size() / 2), "game.smc: ZIP decompression failed (-5)"},
        {"PK\3\4 is not enough", "damaged.zip: Truncated ZIP file header"},
        {"not a zip at all", "Unrecognized archive format"},
    };
    for (const auto& [bytes, reason] : cases) {
        const QString zip = WriteFile("games/damaged.zip", bytes);
        EXPECT_EQ(Decompress(zip), QString());
        EXPECT_TRUE(m_prompts.AskedTexts().constLast().endsWith(reason))
            << m_prompts.AskedTexts().constLast().toStdString();
        EXPECT_EQ(UnzipFolderNames(), QStringList());
    }
}

TEST_F(DecompressGameTest, EncryptedGamesAskForThePassword) {
    const QString aes = MakeZip("aes.zip", {{"readme.txt", "r"}, {"game.smc", m_game}}, "secret");
    m_prompts.AnswerInput("secret");
    EXPECT_EQ(Decompress(aes), "game.smc");
    EXPECT_EQ(UnzipFile("game.smc"), m_game);
    Decompress("flush");

    // Traditional encryption; a wrong password is asked again.
    const QString traditional =
        MakeRawZip("zipcrypt.zip", {{"game.sfc", m_game}}, "zip:encryption=zipcrypt", "secret");
    m_prompts.AnswerInput("wrong").AnswerInput("secret");
    EXPECT_EQ(Decompress(traditional), "game.sfc");
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList(3, "Please Enter The Password!"));

    // A cancel is asked once and leaves every encrypted entry out.
    Decompress("flush");
    m_prompts.AnswerInput(std::nullopt);
    EXPECT_EQ(Decompress(aes), QString());
    EXPECT_EQ(m_prompts.Asked().size(), 5);
    EXPECT_EQ(m_prompts.Asked()[4].text, "readme.txt: Passphrase required for this entry\r\n"
                                         "game.smc: Passphrase required for this entry");
    EXPECT_EQ(UnzipFolderNames(), QStringList());
}

TEST_F(DecompressGameTest, TheDefaultUnzipFolderIsPrivateAndMadeOnFirstUse) {
    const QString folder = DefaultSettings().UnzipFolder;
    QDir(folder).removeRecursively();
    m_state.Options.UnzipFolder = folder;
    EXPECT_EQ(Decompress(MakeZip("Game.zip", {{"Game.smc", m_game}})), "Game.smc");
    EXPECT_TRUE(QFile::exists(folder + "Game.smc")); // the name as given: no lower-cased twin
    EXPECT_EQ(QFileInfo(folder).permissions() & QFile::Permissions(0x7077),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Decompress("flush");
}
