#include "snapshots/ImageFiles.h"

#include "base/PictureTypes.h"
#include "base/StringHelpers.h"
#include "platform/PathResolver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {

bool IsImage(const QString& name) {
    static const PictureTypeTable types = FillPictureTypes();
    return std::any_of(types.begin(), types.end(), [&name](const PictureType& type) {
        return name.endsWith(QLatin1Char('.') + type.Extension, Qt::CaseInsensitive);
    });
}

bool ByNameAsFileList(const QString& left, const QString& right) {
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

// Forward slashes, no trailing one but for the root.
QString PlainPath(const QString& path) {
    QString plain = path;
    plain.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (plain.size() > 1 && plain.endsWith(QLatin1Char('/')))
        plain.chop(1);
    return plain;
}

// The folder's existing path, made first when it does not exist: the parents that
// exist in another letter case are used as they are, and only the rest is created.
// Empty when it cannot be made.
QString MakeFolder(const QString& folder) {
    const QString path = PlainPath(folder);
    if (path.isEmpty())
        return QString();
    const QString existing = ResolvePath(path);
    if (!existing.isEmpty())
        return QFileInfo(existing).isDir() ? PlainPath(existing) : QString();
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    const QString parent = slash < 0 ? QStringLiteral(".") : MakeFolder(path.left(slash + 1));
    if (parent.isEmpty())
        return QString();
    const QString made = (parent.endsWith(QLatin1Char('/')) ? parent : parent + QLatin1Char('/')) +
                         path.mid(slash + 1);
    return QDir().mkdir(made) ? made : QString();
}

} // namespace

QStringList ListImages(const QString& folder, qsizetype limit) {
    QStringList images;
    if (TrimBlanks(folder).isEmpty())
        return images;
    PathResolver resolver;
    const QString resolved = resolver.Resolve(PlainPath(folder) + QLatin1Char('/'));
    if (resolved.isEmpty())
        return images;
    for (const PathResolver::Entry& entry : resolver.Entries(resolved)) {
        if (entry.IsFile && !entry.IsHidden && !entry.IsUndecodable && IsImage(entry.Name))
            images.append(entry.Name);
    }
    std::sort(images.begin(), images.end(), ByNameAsFileList);
    if (images.size() > limit)
        images.resize(limit);
    return images;
}

std::optional<FileError> MoveImage(const QString& source, const QString& target) {
    const QString from = ResolvePath(source);
    if (from.isEmpty())
        return FileError{FileNotFound, QStringLiteral("File not found")};
    const QString plainTarget = PlainPath(target);
    const qsizetype slash = plainTarget.lastIndexOf(QLatin1Char('/'));
    const QString folder =
        slash < 0 ? QStringLiteral(".") : MakeFolder(plainTarget.left(slash + 1));
    if (folder.isEmpty())
        return FileError{PathNotFound, QStringLiteral("Path not found")};
    const QString to = (folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/')) +
                       plainTarget.mid(slash + 1);
    if (!ResolvePath(to).isEmpty())
        return FileError{FileAlreadyExists, QStringLiteral("File already exists")};
    // QFile::rename copies and removes the source where rename(2) cannot cross
    // file systems.
    QFile file(from);
    if (!file.rename(to))
        return FileError{PathFileAccessError, file.errorString()};
    return std::nullopt;
}

std::optional<FileError> RemoveImage(const QString& path) {
    const QString existing = ResolvePath(path);
    if (existing.isEmpty())
        return FileError{FileNotFound, QStringLiteral("File not found")};
    QFile file(existing);
    if (!file.remove())
        return FileError{PathFileAccessError, file.errorString()};
    return std::nullopt;
}
