#include "FuzzCheck.h"
#include "base/Prompts.h"
#include "rom/QzUnzipFiles.h"
#include "rom/UnzipState.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <cstdint>
#include <sys/stat.h>

namespace {

// Gives "secret" at the first password prompt and cancels every later one.
class FuzzPrompts final : public PromptsWithoutDialogs {
public:
    PromptAnswer Message(const QString&, PromptButtons, PromptIcon, const QString&) override {
        return PromptAnswer::Yes;
    }
    std::optional<QString> Input(const QString&, const QString&, const QString&) override {
        if (m_passwords++ > 0)
            return std::nullopt;
        return QStringLiteral("secret");
    }

private:
    int m_passwords = 0;
};

const QDir::Filters Everything =
    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

bool HasControlCharacter(const QString& text) {
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            return true;
    }
    return false;
}

// The unzip folder holds only plain files, each named in the list once (letter case
// aside), and no more than the limits allow; after a stop for size it holds nothing.
// No name, and no line of the message, holds a control character.
void CheckUnzipFolder(const QString& folder, const UnzipState& state, int result, qint64 maxBytes) {
    QSet<QString> listed;
    QSet<QString> lowerCase;
    for (const QString& name : state.UnzippedFiles) {
        if (name.isEmpty())
            continue;
        FUZZ_CHECK(!name.contains(QLatin1Char('/')));
        FUZZ_CHECK(name != QLatin1String(".") && name != QLatin1String(".."));
        FUZZ_CHECK(!HasControlCharacter(name));
        FUZZ_CHECK(!lowerCase.contains(name.toLower()));
        lowerCase.insert(name.toLower());
        listed.insert(name);
    }
    for (const QString& line : state.UnzipMessage.split(QStringLiteral("\r\n")))
        FUZZ_CHECK(!HasControlCharacter(line));
    const QStringList names = QDir(folder).entryList(Everything);
    FUZZ_CHECK(names.size() == listed.size());
    FUZZ_CHECK(result != UnzipTooLarge || names.isEmpty());
    qint64 bytes = 0;
    for (const QString& name : names) {
        FUZZ_CHECK(listed.contains(name));
        struct stat status {};
        const QByteArray path = QFile::encodeName(folder + QLatin1Char('/') + name);
        FUZZ_CHECK(::lstat(path.constData(), &status) == 0);
        FUZZ_CHECK(S_ISREG(status.st_mode) && status.st_nlink == 1);
        bytes += status.st_size;
    }
    FUZZ_CHECK(names.size() <= QzUnzipFiles::MaxEntries);
    FUZZ_CHECK(bytes <= maxBytes);
}

} // namespace

// Every input is a zip archive extracted as a zipped game is: flat, into a folder of
// its own beside the archive. Nothing may land beside the archive, and the folder may
// hold only what the extraction lists.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir root;
    FUZZ_CHECK(root.isValid());
    const QString archive = root.filePath(QStringLiteral("game.zip"));
    const QString folder = root.filePath(QStringLiteral("unzip"));
    QFile file(archive);
    FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    FUZZ_CHECK(file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) ==
               static_cast<qint64>(size));
    file.close();

    UnzipState state;
    FuzzPrompts prompts;
    QzUnzipFiles unzip(state, prompts);
    unzip.HonorDirectories = false;
    const int result = unzip.Unzip(archive, folder);

    FUZZ_CHECK(QDir(root.path()).entryList(Everything) ==
               QStringList({QStringLiteral("game.zip"), QStringLiteral("unzip")}));
    CheckUnzipFolder(folder, state, result, unzip.MaxBytes);
    for (const QString& name : QDir(folder).entryList(Everything))
        QFile::remove(folder + QLatin1Char('/') + name);
    return 0;
}
