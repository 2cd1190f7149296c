#include "platform/DocumentOpener.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>

namespace {

bool IsPictureExtension(const QString& extension) {
    for (const char* picture : {"png", "jpg", "jpeg", "gif", "bmp", "webp", "tif", "tiff"})
        if (extension == QLatin1String(picture))
            return true;
    return false;
}

} // namespace

QString NoProgramToOpenMessage(const QString& path) {
    const QFileInfo info(path);
    const QString extension = info.suffix().toLower();
    QString kind;
    if (info.isDir())
        kind = QStringLiteral("folders");
    else if (extension.isEmpty())
        kind = QStringLiteral("files without an extension");
    else
        kind = extension.toUpper() + (IsPictureExtension(extension) ? QStringLiteral(" images")
                                                                    : QStringLiteral(" files"));
    return QStringLiteral("No program is set up to open ") + kind + QLatin1Char('.');
}

bool HasProgramToOpen(const QString& path) {
    const QString xdgMime = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (xdgMime.isEmpty())
        return true;
    const QString type = QMimeDatabase().mimeTypeForFile(path).name();
    QProcess query;
    query.start(xdgMime, {QStringLiteral("query"), QStringLiteral("default"), type});
    if (!query.waitForFinished(10000)) {
        query.kill();
        query.waitForFinished();
        return true; // no answer in time: let the opener try
    }
    return !query.readAllStandardOutput().trimmed().isEmpty();
}
