#include "config/SaveFileLeftovers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace {

// QSaveFile's temporary name: the file's name, ".", and six letters each drawn at random
// from A-Z and a-z. A suffix of lower-case letters alone is left alone: it may be a
// word that a person typed for a copy ("Lumbra.conf.backup"), and only one temporary
// name in 64 looks like that.
bool IsLeftoverName(const QString& name, const QString& storeName) {
    constexpr int RandomLetters = 6;
    if (name.size() != storeName.size() + 1 + RandomLetters || !name.startsWith(storeName) ||
        name.at(storeName.size()) != QLatin1Char('.'))
        return false;
    bool upper = false;
    for (const QChar c : name.right(RandomLetters)) {
        const bool isUpper = c >= QLatin1Char('A') && c <= QLatin1Char('Z');
        if (!isUpper && !(c >= QLatin1Char('a') && c <= QLatin1Char('z')))
            return false;
        upper = upper || isUpper;
    }
    return upper;
}

} // namespace

void RemoveSaveFileLeftovers(const QString& storeFile) {
    const QFileInfo store(storeFile);
    const QDir folder = store.absoluteDir();
    const QString storeName = store.fileName();
    QStringList leftovers;
    for (const QString& name : folder.entryList({storeName + QStringLiteral(".*")},
                                                QDir::Files | QDir::Hidden | QDir::System)) {
        if (IsLeftoverName(name, storeName))
            leftovers.append(name);
    }
    if (leftovers.isEmpty())
        return;
    // QSettings holds "<file>.lock" around each write of the file, from before its
    // temporary copy exists until that copy has been renamed over the file. While we
    // hold that lock, no live process has a temporary copy, so each one found is a
    // killed write's. The store's writer lock (StoreWriterLock) would not do: it only
    // keeps two of Lumbra's writers apart, and no age is safe for a writer that is
    // stopped or slow. A live writer that holds the lock now gets its turn: the
    // leftovers wait for the next write.
    QLockFile lock(storeFile + QStringLiteral(".lock"));
    if (!lock.tryLock(0))
        return;
    for (const QString& name : leftovers)
        QFile::remove(folder.filePath(name));
}
