#include "rom/QzUnzipFiles.h"
#include "ZipFixture.h"
#include "rom/UnzipState.h"
#include "support/FilesAnywhere.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <functional>
#include <sys/stat.h>
#include <tuple>

namespace {

using Kind = RawEntry::Kind;

class QzUnzipFilesTest : public ZipFixture {
protected:
    int Unzip(const QString& zip, const std::function<void(QzUnzipFiles&)>& options = {}) {
        QzUnzipFiles unzip(m_state.Unzip, m_prompts);
        if (options)
            options(unzip);
        return unzip.Unzip(zip, m_unzip);
    }
};

} // namespace

TEST_F(QzUnzipFilesTest, HostileEntriesNeverReachOutsideTheUnzipFolder) {
    const QString victim = WriteFile("outside/victim.smc", "precious");
    ASSERT_TRUE(QFile::link(victim, m_unzip + "/game.smc"));
    const QByteArray absolute = QFile::encodeName(TempPath("outside/abs.smc"));
    const QString zip =
        MakeRawZip("hostile.zip", {{"../evil.smc", "evil"},
                                   {absolute, "abs"},
                                   {"a/../../b.smc", "b"},
                                   {"x\\..", "dots"},
                                   {"link.smc", {}, Kind::SymbolicLink, QFile::encodeName(victim)},
                                   {"hard.smc", {}, Kind::HardLink, QFile::encodeName(victim)},
                                   {"game.smc", "game"}});
    EXPECT_EQ(Unzip(zip), UnzipSkippedEntries);
    // Nothing new beside the unzip folder or in "outside"; the link's target is unchanged.
    EXPECT_EQ(QDir(TempPath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"games", "outside", "unzip"}));
    EXPECT_EQ(QDir(TempPath("outside")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList("victim.smc"));
    EXPECT_EQ(ReadFile(victim), "precious");
    EXPECT_EQ(UnzipFolderFiles(), QStringList({"abs.smc=abs", "b.smc=b", "evil.smc=evil",
                                               "game.smc=game", "hard.smc="}));
    for (const QString& name : UnzipFolderNames()) {
        struct stat status {};
        ASSERT_EQ(::lstat(QFile::encodeName(m_unzip + '/' + name).constData(), &status), 0);
        EXPECT_TRUE(S_ISREG(status.st_mode) && status.st_nlink == 1) << name.toStdString();
    }
    EXPECT_EQ(m_state.Unzip.UnzipMessage,
              "Extracted: evil.smc\r\nExtracted: abs.smc\r\nExtracted: b.smc\r\n"
              "x/..: left out, no usable file name\r\n"
              "link.smc: left out, not a regular file\r\n"
              "Extracted: hard.smc\r\nExtracted: game.smc");
}

TEST_F(QzUnzipFilesTest, LimitsStopTheExtractionAndKeepNothing) {
    Files files;
    for (int index = 0; index < QzUnzipFiles::MaxEntries; ++index)
        files.append({QStringLiteral("f%1.txt").arg(index), "x"});
    EXPECT_EQ(Unzip(MakeZip("hundred.zip", files)), UnzipOk);
    EXPECT_EQ(UnzipFolderNames().size(), 100);
    EXPECT_EQ(m_state.Unzip.UnzippedFiles[99], "f99.txt");
    files.append({QStringLiteral("f100.txt"), "x"});

    // Beyond the size limit (lowered here to 1 MiB), as the central directory says,
    // and found while reading when the archive is cut before it, so that no entry
    // gives its size.
    const QString big =
        MakeRawZip("big.zip", {{"readme.txt", "r"}, {"big.smc", {}, Kind::File, {}, 2 << 20, true}},
                   "zip:compression-level=1");
    QFile bigFile(big);
    ASSERT_TRUE(bigFile.open(QIODevice::ReadOnly));
    const QByteArray bytes = bigFile.readAll();
    const QString cut = WriteFile("games/cut.zip", bytes.left(bytes.lastIndexOf("PK\1\2")));

    const std::pair<QString, QString> cases[] = {
        {MakeZip("101.zip", files), "holds more than 100 entries"},
        {big, "expands beyond 1 MiB"},
        {cut, "expands beyond 1 MiB"}};
    for (const auto& [zip, reason] : cases) {
        EmptyUnzipFolder();
        EXPECT_EQ(Unzip(zip, [](QzUnzipFiles& unzip) { unzip.MaxBytes = 1 << 20; }), UnzipTooLarge);
        EXPECT_EQ(UnzipFolderNames(), QStringList()) << reason.toStdString();
        EXPECT_EQ(m_state.Unzip.UnzippedFiles[0], QString());
        EXPECT_TRUE(m_state.Unzip.UnzipMessage.endsWith(zip + ": stopped, the archive " + reason +
                                                        ". Nothing of it was kept."));
    }
}

TEST_F(QzUnzipFilesTest, OptionsDecideWhatIsWritten) {
    const QString zip = MakeZip("options.zip", {{"old.smc", "new"}, {"fresh.smc", "new"}});
    const QDateTime past = QDateTime::currentDateTime().addYears(-1);
    const QDateTime future = past.addYears(2);
    const std::tuple<std::function<void(QzUnzipFiles&)>, QDateTime, QStringList> cases[] = {
        {[](QzUnzipFiles& u) { u.OverWriteFiles = false; }, past, {"fresh.smc=new", "old.smc=old"}},
        {[](QzUnzipFiles& u) { u.ExtractNewer = true; }, past, {"old.smc=new"}},
        {[](QzUnzipFiles& u) { u.ExtractNewer = true; }, future, {"old.smc=old"}},
        {[](QzUnzipFiles& u) { u.ExtractOnlyNewer = true; },
         future,
         {"fresh.smc=new", "old.smc=old"}},
        {[](QzUnzipFiles& u) { u.TestZip = true; }, past, {"old.smc=old"}},
        {[](QzUnzipFiles& u) { u.PromptOverwrite = true; }, past, {"fresh.smc=new", "old.smc=old"}},
        {[](QzUnzipFiles& u) { u.PromptOverwrite = true; }, past, {"fresh.smc=new", "old.smc=new"}},
    };
    m_prompts.AnswerMessage(PromptAnswer::No).AnswerMessage(PromptAnswer::Yes);
    for (const auto& [options, existing, files] : cases) {
        EmptyUnzipFolder();
        ASSERT_TRUE(SetModifiedTime(WriteFile("unzip/old.smc", "old"), existing));
        EXPECT_EQ(Unzip(zip, options), UnzipOk);
        EXPECT_EQ(UnzipFolderFiles(), files);
    }
    const ScriptedPrompts::Question& asked = m_prompts.Asked().constLast();
    EXPECT_EQ(asked.text + " | " + asked.title,
              "Overwrite old.smc | VBUnZip32 - File Already Exists!");
    EXPECT_EQ(asked.buttons, PromptButtons::YesNo);
}

TEST_F(QzUnzipFilesTest, TheFirstEntryOfANameWinsAndLaterOnesAreLoggedAndLeftOut) {
    EnableLog();
    WriteFile("unzip/game.smc", "stale");
    const QString zip = MakeRawZip("repeats.zip", {{"game.smc", "first"},
                                                   {"readme.txt", "r"},
                                                   {"roms/GAME.smc", "second"},
                                                   {"game.smc", "third"},
                                                   {"a\x01.smc", "fourth"},
                                                   {"a\x02.smc", "fifth"}});

    EXPECT_EQ(Unzip(zip), UnzipOk);
    EXPECT_EQ(UnzipFolderFiles(),
              QStringList({"a\uFFFD.smc=fourth", "game.smc=first", "readme.txt=r"}));
    const auto& unzipped = m_state.Unzip.UnzippedFiles;
    EXPECT_EQ(QStringList(unzipped.begin(), unzipped.begin() + 4),
              QStringList({"game.smc", "readme.txt", "a\uFFFD.smc", ""}));
    EXPECT_EQ(m_state.Unzip.UnzipMessage,
              "Extracted: game.smc\r\nExtracted: readme.txt\r\n"
              "roms/GAME.smc: left out, an earlier entry has the same name\r\n"
              "game.smc: left out, an earlier entry has the same name\r\n"
              "Extracted: a\uFFFD.smc\r\n"
              "a\uFFFD.smc: left out, an earlier entry has the same name");
    for (const QString name : {"GAME.smc", "game.smc", "a\uFFFD.smc"})
        EXPECT_TRUE(LogText().contains("Left out a later entry named " + name + " of " + zip +
                                       ": the first entry of that name is kept."))
            << LogText().toStdString();
}

TEST_F(QzUnzipFilesTest, ControlCharactersInNamesNeverReachAFileNameOrTheMessage) {
    const QString zip =
        MakeRawZip("controls.zip", {{"roms\x1b]0;pwned\x07/evil\x1b[2J.smc", "game"},
                                    {"line\nbreak\r.txt", "text"},
                                    {"tab\there\x7f\xc2\x9b.txt", "tab"},
                                    {"link\x1b[K.smc", {}, Kind::SymbolicLink, "/etc/passwd"},
                                    {"dots\x1b/..", "x"}});
    EXPECT_EQ(Unzip(zip), UnzipSkippedEntries);
    EXPECT_EQ(UnzipFolderFiles(),
              QStringList({"evil\uFFFD[2J.smc=game", "line\uFFFDbreak\uFFFD.txt=text",
                           "tab\uFFFDhere\uFFFD\uFFFD.txt=tab"}));
    EXPECT_EQ(m_state.Unzip.UnzipMessage.split("\r\n"),
              QStringList({"Extracted: evil\uFFFD[2J.smc", "Extracted: line\uFFFDbreak\uFFFD.txt",
                           "Extracted: tab\uFFFDhere\uFFFD\uFFFD.txt",
                           "link\uFFFD[K.smc: left out, not a regular file",
                           "dots\uFFFD/..: left out, no usable file name"}));
}
