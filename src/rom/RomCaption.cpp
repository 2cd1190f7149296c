#include "rom/RomCaption.h"

#include "base/StringHelpers.h"
#include "platform/PathResolver.h"
#include "rom/FormatCaption.h"
#include "rom/RomInfo.h"

#include <QFile>

namespace {

constexpr int TitleLength = 21;

// The 21 title bytes of the header that the probe finds, or 21 blanks when the
// file cannot be opened or has no header.
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

QString FirstCaption(const QString& path, qint16 useBaseFilenames, PathResolver& resolver) {
    // An archive is not opened: its file name stands for the title.
    const bool zipped = LowerCase(path.right(3)) == QLatin1String("zip");
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
