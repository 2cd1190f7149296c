#include "rom/QzUnzipFiles.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "rom/ArchiveEntryName.h"
#include "rom/ArchiveLibrary.h"
#include "rom/UnzipFolder.h"
#include "rom/UnzipState.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <optional>
#include <string>

// What one call of Unzip works with.
struct QzUnzipFiles::Run {
    archive* Reader = nullptr;
    std::optional<UnzipFolder> Folder; // none while testing or listing
    int Result = UnzipOk;
    int Entries = 0;
    qint64 Bytes = 0;
    bool Stopped = false;
    bool PasswordRefused = false;
    std::string Password;
    QSet<QString> Names; // every file name claimed so far, in lower case
};

namespace {

constexpr qsizetype BlockSize = 64 * 1024;

QString ReasonOf(archive* reader) {
    const char* reason = archive_error_string(reader);
    return reason ? QString::fromLocal8Bit(reason) : QStringLiteral("Unknown error");
}

std::optional<qint64> ModifiedTime(archive_entry* entry) {
    if (!archive_entry_mtime_is_set(entry))
        return std::nullopt;
    return archive_entry_mtime(entry);
}

} // namespace

QzUnzipFiles::QzUnzipFiles(UnzipState& state, Prompts& prompts)
    : m_state(state), m_prompts(prompts) {}

int QzUnzipFiles::Unzip(const QString& zipName, const QString& extractDir) {
    if (!zipName.isEmpty())
        ZipFileName = zipName;
    if (!extractDir.isEmpty())
        ExtractDir = extractDir;
    m_state.UnzippedFiles.fill(QString());
    m_state.UnzipMessage.clear();

    Run run;
    if (ZipFileName.isEmpty()) {
        Fail(run, UnzipNoFolder, QStringLiteral("No archive was named."));
        return run.Result;
    }
    if (!TestZip && ExtractList == 0) {
        const QString folder = ExtractDir.isEmpty() ? QDir::currentPath() : ExtractDir;
        run.Folder.emplace(folder);
        if (!run.Folder->IsOpen()) {
            Fail(run, UnzipNoFolder, folder + QStringLiteral(": ") + run.Folder->ErrorText());
            return run.Result;
        }
    }

    run.Reader = archive_read_new();
    if (!run.Reader) {
        Fail(run, UnzipNoArchive, ZipFileName + QStringLiteral(": ") + ArchiveLibraryProblem());
        return run.Result;
    }
    m_run = &run;
    archive_read_support_format_zip(run.Reader);
    archive_read_set_passphrase_callback(run.Reader, this, &QzUnzipFiles::AskPassword);
    if (archive_read_open_filename(run.Reader, QFile::encodeName(ZipFileName).constData(),
                                   BlockSize) != ARCHIVE_OK) {
        Fail(run, UnzipNoArchive, ZipFileName + QStringLiteral(": ") + ReasonOf(run.Reader));
        run.Stopped = true;
    }
    while (!run.Stopped) {
        archive_entry* entry = nullptr;
        const int status = archive_read_next_header(run.Reader, &entry);
        if (status == ARCHIVE_EOF)
            break;
        if (++run.Entries > MaxEntries) {
            StopTooLarge(run, QStringLiteral("holds more than %1 entries").arg(MaxEntries));
        } else if (status < ARCHIVE_WARN) {
            Fail(run, UnzipDamaged, ZipFileName + QStringLiteral(": ") + ReasonOf(run.Reader));
            run.Stopped = status == ARCHIVE_FATAL;
        } else {
            if (status == ARCHIVE_WARN)
                Fail(run, UnzipOk, EntryPath(entry) + QStringLiteral(": ") + ReasonOf(run.Reader));
            ExtractEntry(run, entry);
        }
    }
    archive_read_free(run.Reader);
    m_run = nullptr;
    if (run.Result == UnzipTooLarge)
        RollBack(run);
    return run.Result;
}

void QzUnzipFiles::ExtractEntry(Run& run, archive_entry* entry) {
    const QString path = EntryPath(entry);
    if (ExtractList != 0) {
        Note(path + QStringLiteral(" (%1 bytes)").arg(archive_entry_size(entry)));
        return;
    }
    const auto type = archive_entry_filetype(entry);
    if (type == AE_IFDIR)
        return;
    if (type != AE_IFREG || archive_entry_hardlink(entry)) {
        Fail(run, UnzipSkippedEntries, path + QStringLiteral(": left out, not a regular file"));
        return;
    }
    QString name = FlatName(path);
    if (name.isEmpty()) {
        Fail(run, UnzipSkippedEntries, path + QStringLiteral(": left out, no usable file name"));
        return;
    }
    if (SpaceToUnderScore)
        name.replace(QLatin1Char(' '), QLatin1Char('_'));
    if (archive_entry_size_is_set(entry) && archive_entry_size(entry) > MaxBytes - run.Bytes) {
        StopTooLarge(run, QStringLiteral("expands beyond %1 MiB").arg(MaxBytes >> 20));
        return;
    }
    if (TestZip) {
        if (ReadData(run, entry, nullptr))
            Note(QStringLiteral("Tested: ") + name);
        return;
    }
    // The first entry of a name wins, whatever happens to it: a later one of the same
    // name (letter case aside, since many file systems ignore it) would replace the
    // game that is then played.
    if (run.Names.contains(name.toLower())) {
        LogEvent(QStringLiteral("Left out a later entry named ") + name + QStringLiteral(" of ") +
                 ReplaceControlCharacters(ZipFileName) +
                 QStringLiteral(": the first entry of that name is kept."));
        Note(path + QStringLiteral(": left out, an earlier entry has the same name"));
        return;
    }
    run.Names.insert(name.toLower());
    if (!ShouldWrite(run, entry, name) || !ReadData(run, entry, &*run.Folder))
        return;
    if (!run.Folder->Commit(name, ModifiedTime(entry))) {
        Fail(run, UnzipWriteFailed, name + QStringLiteral(": ") + run.Folder->ErrorText());
        return;
    }
    Record(name);
    Note(QStringLiteral("Extracted: ") + name);
}

bool QzUnzipFiles::ReadData(Run& run, archive_entry* entry, UnzipFolder* folder) {
    if (folder && !folder->Begin()) {
        Fail(run, UnzipWriteFailed, EntryPath(entry) + QStringLiteral(": ") + folder->ErrorText());
        return false;
    }
    QByteArray block(BlockSize, Qt::Uninitialized);
    for (;;) {
        const la_ssize_t read = archive_read_data(run.Reader, block.data(), block.size());
        if (read == 0)
            return true;
        if (folder && read < 0)
            folder->Abort();
        if (read < 0) {
            const bool locked = read == ARCHIVE_FAILED && archive_entry_is_encrypted(entry);
            Fail(run, locked ? UnzipNoPassword : UnzipDamaged,
                 EntryPath(entry) + QStringLiteral(": ") + ReasonOf(run.Reader));
            run.Stopped = read == ARCHIVE_FATAL;
            return false;
        }
        run.Bytes += read;
        if (run.Bytes > MaxBytes) {
            if (folder)
                folder->Abort();
            StopTooLarge(run, QStringLiteral("expands beyond %1 MiB").arg(MaxBytes >> 20));
            return false;
        }
        if (folder && !folder->Write(block.constData(), read)) {
            Fail(run, UnzipWriteFailed,
                 EntryPath(entry) + QStringLiteral(": ") + folder->ErrorText());
            folder->Abort();
            return false;
        }
    }
}

bool QzUnzipFiles::ShouldWrite(Run& run, archive_entry* entry, const QString& name) {
    const std::optional<qint64> existing = run.Folder->ModifiedTime(name);
    const std::optional<qint64> modified = ModifiedTime(entry);
    const bool newer = existing && modified && *modified > *existing;
    if (ExtractNewer && !existing)
        return false;
    if ((ExtractNewer || ExtractOnlyNewer) && existing && !newer)
        return false;
    if (!existing)
        return true;
    if (PromptOverwrite)
        return m_prompts.Message(
                   QStringLiteral("Overwrite ") + name, PromptButtons::YesNo, PromptIcon::Question,
                   QStringLiteral("VBUnZip32 - File Already Exists!")) == PromptAnswer::Yes;
    return OverWriteFiles;
}

void QzUnzipFiles::StopTooLarge(Run& run, const QString& reason) {
    Fail(run, UnzipTooLarge,
         ZipFileName + QStringLiteral(": stopped, the archive ") + reason +
             QStringLiteral(". Nothing of it was kept."));
    run.Stopped = true;
}

void QzUnzipFiles::RollBack(Run& run) {
    for (QString& name : m_state.UnzippedFiles) {
        if (!name.isEmpty() && run.Folder)
            run.Folder->Remove(name);
        name.clear();
    }
}

void QzUnzipFiles::Record(const QString& name) {
    auto& files = m_state.UnzippedFiles;
    if (std::find(files.begin(), files.end(), name) != files.end())
        return;
    const auto free = std::find(files.begin(), files.end(), QString());
    if (free != files.end())
        *free = name;
}

void QzUnzipFiles::Fail(Run& run, int code, const QString& line) {
    // The first failure is the result; left-out entries count only when nothing failed,
    // and a stop for size overrides everything.
    if (code == UnzipTooLarge || run.Result == UnzipOk || run.Result == UnzipSkippedEntries)
        run.Result = code == UnzipTooLarge ? code : std::max(run.Result, code);
    if (MessageLevel <= 1)
        Append(line);
}

void QzUnzipFiles::Note(const QString& line) {
    if (MessageLevel <= 0)
        Append(line);
}

void QzUnzipFiles::Append(const QString& line) {
    QString& message = m_state.UnzipMessage;
    if (!message.isEmpty())
        message += QStringLiteral("\r\n");
    // libarchive's reasons may quote a name too.
    message += ReplaceControlCharacters(line);
}

const char* QzUnzipFiles::AskPassword(archive* /*reader*/, void* self) {
    auto* unzip = static_cast<QzUnzipFiles*>(self);
    Run& run = *unzip->m_run;
    if (run.PasswordRefused)
        return nullptr;
    const std::optional<QString> answer =
        unzip->m_prompts.Input(QStringLiteral("Please Enter The Password!"));
    if (!answer || answer->isEmpty()) {
        run.PasswordRefused = true;
        return nullptr;
    }
    run.Password = answer->toStdString();
    return run.Password.c_str();
}

QString QzUnzipFiles::GetLastMessage() const {
    return m_state.UnzipMessage;
}

QString QzUnzipFiles::FileList(int index) const {
    if (index < 0 || index >= UnzipState::Capacity)
        return QString();
    return m_state.UnzippedFiles[index];
}
