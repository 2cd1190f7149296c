#include "config/StorageTarget.h"

StorageTarget ParseStorageTarget(const QString& word) {
    const QString lowered = word.toLower();
    if (lowered == QLatin1String("reg") || lowered == QLatin1String("registry"))
        return StorageTarget::Store;
    if (lowered == QLatin1String("file") || lowered == QLatin1String("ini"))
        return StorageTarget::File;
    return StorageTarget::None;
}
