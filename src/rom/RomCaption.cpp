#include "rom/RomCaption.h"

#include "base/StringHelpers.h"
#include "platform/PathResolver.h"
#include "rom/FormatCaption.h"
#include "rom/GameImage.h"
#include "rom/RomInfo.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

constexpr int TitleLength = 21;

// The 21 title bytes of the header that the probe finds, or 21 blanks when the
// file cannot be opened or has no header.
#ifdef Q_OS_UNIX
// A scan reads a thousand titles: one open, the probe's reads and a close each,
// without the stat and the object that a QFile adds.
QString RawTitle(const QString& path, PathResolver& resolver) {
    QString title(TitleLength, QLatin1Char(' '));
    const int file =
        ::open(QFile::encodeName(resolver.ResolveOrKeep(path)).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return title;
    const auto readAt = [file](qint64 offset, int count) {
        QByteArray bytes(count, '\0'); // bytes past the end read as zeros
        [[maybe_unused]] const ssize_t got =
            ::pread(file, bytes.data(), static_cast<size_t>(count), static_cast<off_t>(offset));
        return bytes;
    };
    const qint64 position = FindHeaderPosition(readAt);
    if (position > 0)
        title = QString::fromLatin1(readAt(position - 1, TitleLength));
    ::close(file);
    return title;
}
#else
QString RawTitle(const QString& path, PathResolver& resolver) {
    QString title(TitleLength, QLatin1Char(' '));
    QFile file(resolver.ResolveOrKeep(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return title;
    const qint64 position = FindHeaderPosition(file);
    if (position > 0)
        title = QString::fromLatin1(ReadBytesAt(file, position - 1, TitleLength));
    return title;
}
#endif

QString FirstCaption(const QString& path, qint16 useBaseFilenames, PathResolver& resolver) {
    // An archive is not opened: its file name stands for the title.
    const bool zipped = IsZippedGame(path);
    const QString caption = FormatCaption(zipped ? GetFileName(path) : RawTitle(path, resolver));
    if (!caption.isEmpty())
        return caption;
    if (useBaseFilenames == 1) {
        // The file name without its extension; the folder is no part of a caption.
        const QString fileName = GetFileName(path);
        const int dot = InStrLast(fileName, QStringLiteral("."));
        return FormatCaption(dot > 0 ? fileName.left(dot - 1) : fileName);
    }
    // The "*" marks a caption that could not be read from the file.
    return QLatin1Char('*') + GetFileName(path);
}

} // namespace

QString GetRomCaption(const QString& path, qint16 useBaseFilenames, PathResolver& resolver) {
    // A stored record joins its fields with ";", so no caption may hold one.
    QString caption = FirstCaption(path, useBaseFilenames, resolver);
    caption.replace(QLatin1Char(';'), QLatin1Char(' '));
    return caption;
}
