#include "snapshots/Snapshot.h"

#include "base/PictureTypes.h"
#include "base/StringHelpers.h"
#include "platform/ShortPath.h"

#include <QDir>

std::optional<QString> FindSnapshot(const QString& fileName, const QString& snapshotFolder) {
    if (fileName.isEmpty() || snapshotFolder.isEmpty())
        return std::nullopt;
    const QString folder =
        EndsWithSeparator(snapshotFolder) ? snapshotFolder : snapshotFolder + QDir::separator();
    const int dot = InStrLast(fileName, QStringLiteral("."));
    const QString base = dot > 0 ? fileName.left(dot - 1) : fileName;
    for (const PictureType& type : FillPictureTypes()) {
        const QString snapshot = GetShortPath(folder + base + QLatin1Char('.') + type.Extension);
        if (!snapshot.isEmpty())
            return snapshot;
    }
    return QString();
}
