#include "rom/QzZipFiles.h"

#include "base/Prompts.h"
#include "platform/SaveFile.h"
#include "rom/ArchiveLibrary.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <archive.h>
#include <archive_entry.h>
#include <functional>
#include <string>

namespace {

constexpr qint64 BlockSize = 64 * 1024;

QString ReasonOf(archive* writer) {
    const char* reason = archive_error_string(writer);
    return reason ? QString::fromLocal8Bit(reason) : QStringLiteral("Unknown error");
}

la_ssize_t WriteBlock(archive* /*writer*/, void* file, const void* data, size_t size) {
    return static_cast<QSaveFile*>(file)->write(static_cast<const char*>(data),
                                                static_cast<qint64>(size));
}

QString StoredName(const QDir& root, const QFileInfo& info) {
    QString stored = root.relativeFilePath(info.absoluteFilePath());
    if (stored == QLatin1String(".") || stored == QLatin1String("..") ||
        stored.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(stored))
        stored = info.fileName();
    return info.isDir() ? stored + QLatin1Char('/') : stored;
}

} // namespace

std::optional<QzZipError> QzZipFiles::AddFile(const QString& name) {
    if (m_files.contains(name))
        return QzZipError{2001, QStringLiteral("File is already in Zip List"),
                          QStringLiteral("QzZip::AddFile")};
    m_files.append(name);
    return std::nullopt;
}

std::optional<QzZipError> QzZipFiles::RemoveFile(const QString& name) {
    if (!m_files.removeOne(name))
        return QzZipError{2001, QStringLiteral("File is not in Zip List"),
                          QStringLiteral("QzZip::RemoveFile")};
    return std::nullopt;
}

int QzZipFiles::Fail(int code, const QString& message) {
    m_message = message;
    return code;
}

QList<QzZipFiles::Item> QzZipFiles::CollectItems() const {
    const QDir root(RootDirectory.isEmpty() ? QDir::currentPath() : RootDirectory);
    QList<Item> items;
    QDir::Filters filters = QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    if (IncludeSystemFiles)
        filters |= QDir::Hidden;
    std::function<void(const QString&)> addBelow = [&](const QString& folder) {
        for (const QFileInfo& info : QDir(folder).entryInfoList(filters, QDir::Name)) {
            items.append({info.absoluteFilePath(), StoredName(root, info)});
            if (info.isDir())
                addBelow(info.absoluteFilePath());
        }
    };
    for (const QString& name : m_files) {
        const QFileInfo info(root, name);
        items.append({info.absoluteFilePath(), StoredName(root, info)});
        if (info.isDir() && RecurseFolders)
            addBelow(info.absoluteFilePath());
    }
    return items;
}

int QzZipFiles::MakeZipFile() {
    m_message.clear();
    if (m_files.isEmpty())
        return Fail(ZipNothingToDo, QStringLiteral("The zip list is empty."));
    const QList<Item> items = CollectItems();
    for (const Item& item : items) {
        if (!QFileInfo(item.Path).isReadable())
            return Fail(ZipCannotRead, item.Path + QStringLiteral(": cannot be read"));
    }
    std::string password;
    if (Encrypted) {
        const std::optional<QString> answer =
            m_prompts.Input(QStringLiteral("Please Enter The Password!"));
        if (!answer || answer->isEmpty())
            return Fail(ZipCancelled, QStringLiteral("No password was given."));
        password = answer->toStdString();
    }

    QSaveFile file(ZipFileName);
    if (!file.open(QIODevice::WriteOnly))
        return Fail(ZipCannotWrite, ZipFileName + QStringLiteral(": ") + file.errorString());
    archive* writer = archive_write_new();
    if (!writer) {
        file.cancelWriting();
        return Fail(ZipCannotWrite, ZipFileName + QStringLiteral(": ") + ArchiveLibraryProblem());
    }
    archive_write_set_format_zip(writer);
    archive_write_set_bytes_in_last_block(writer, 1);
    int code = ZipOk;
    if (archive_write_set_options(writer, "zip:hdrcharset=UTF-8") != ARCHIVE_OK ||
        (Encrypted && (archive_write_set_options(writer, "zip:encryption=aes256") != ARCHIVE_OK ||
                       archive_write_set_passphrase(writer, password.c_str()) != ARCHIVE_OK)) ||
        archive_write_open2(writer, &file, nullptr, WriteBlock, nullptr, nullptr) != ARCHIVE_OK)
        code = Fail(ZipCannotWrite, ZipFileName + QStringLiteral(": ") + ReasonOf(writer));
    for (const Item& item : items) {
        if (code == ZipOk)
            code = WriteItem(writer, item);
    }
    if (archive_write_close(writer) != ARCHIVE_OK && code == ZipOk)
        code = Fail(ZipCannotWrite, ZipFileName + QStringLiteral(": ") + ReasonOf(writer));
    archive_write_free(writer);
    if (code != ZipOk) {
        file.cancelWriting();
        return code;
    }
    QString reason;
    if (!CommitWhole(file, &reason))
        return Fail(ZipCannotWrite, ZipFileName + QStringLiteral(": ") + reason);
    return ZipOk;
}

int QzZipFiles::WriteItem(archive* writer, const Item& item) {
    const QFileInfo info(item.Path);
    QFile file(item.Path);
    if (!info.isDir() && !file.open(QIODevice::ReadOnly))
        return Fail(ZipCannotRead, item.Path + QStringLiteral(": ") + file.errorString());

    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname_utf8(entry, item.Stored.toUtf8().constData());
    archive_entry_set_mtime(entry, info.lastModified().toSecsSinceEpoch(), 0);
    archive_entry_set_filetype(entry, info.isDir() ? AE_IFDIR : AE_IFREG);
    archive_entry_set_perm(entry, info.isDir() ? 0755 : 0644);
    if (!info.isDir())
        archive_entry_set_size(entry, file.size());
    const int status = archive_write_header(writer, entry);
    archive_entry_free(entry);
    if (status < ARCHIVE_WARN)
        return Fail(ZipCannotWrite, item.Stored + QStringLiteral(": ") + ReasonOf(writer));

    while (file.isOpen() && !file.atEnd()) {
        const QByteArray block = file.read(BlockSize);
        if (block.isEmpty())
            return Fail(ZipCannotRead, item.Path + QStringLiteral(": ") + file.errorString());
        if (archive_write_data(writer, block.constData(), static_cast<size_t>(block.size())) < 0)
            return Fail(ZipCannotWrite, item.Stored + QStringLiteral(": ") + ReasonOf(writer));
    }
    return ZipOk;
}
