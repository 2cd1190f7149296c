#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// The first SNES game image in a zip archive: its file name without folders and, when
// asked for, its bytes. Nothing when the archive cannot be read or holds no image (an
// encrypted image, or one beyond MaxArchivedGameBytes, is passed over). Nothing is
// written: the bytes are read into memory.
struct ArchivedGame {
    QString Name;
    QByteArray Bytes;
};

constexpr qint64 MaxArchivedGameBytes = qint64(64) << 20;

std::optional<ArchivedGame> ReadArchivedGame(const QString& archivePath, bool withBytes);
