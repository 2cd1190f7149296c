#include "rom/ArchivedGame.h"

#include "rom/ArchiveEntryName.h"
#include "rom/GameImage.h"

#include <QFile>
#include <archive.h>
#include <archive_entry.h>
#include <memory>

namespace {

// Reads the current entry's data; false when it cannot be read whole.
bool ReadEntryData(archive* reader, archive_entry* entry, QByteArray& bytes) {
    if (archive_entry_size_is_set(entry) && archive_entry_size(entry) > MaxArchivedGameBytes)
        return false;
    char block[64 * 1024];
    for (;;) {
        const la_ssize_t read = archive_read_data(reader, block, sizeof block);
        if (read == 0)
            return true;
        if (read < 0 || bytes.size() + read > MaxArchivedGameBytes)
            return false;
        bytes.append(block, read);
    }
}

} // namespace

std::optional<ArchivedGame> ReadArchivedGame(const QString& archivePath, bool withBytes) {
    const std::unique_ptr<archive, decltype(&archive_read_free)> reader(archive_read_new(),
                                                                        &archive_read_free);
    if (!reader)
        return std::nullopt;
    archive_read_support_format_zip(reader.get());
    if (archive_read_open_filename(reader.get(), QFile::encodeName(archivePath).constData(),
                                   64 * 1024) != ARCHIVE_OK)
        return std::nullopt;
    archive_entry* entry = nullptr;
    int status;
    while ((status = archive_read_next_header(reader.get(), &entry)) >= ARCHIVE_WARN) {
        const QString name = FlatName(EntryPath(entry));
        if (archive_entry_filetype(entry) != AE_IFREG || !IsGameImage(name))
            continue;
        ArchivedGame game{name, QByteArray()};
        if (!withBytes)
            return game;
        if (ReadEntryData(reader.get(), entry, game.Bytes))
            return game;
    }
    return std::nullopt;
}
