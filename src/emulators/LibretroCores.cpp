#include "emulators/LibretroCores.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/KeyValueFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

namespace {

const QString CoreSuffix = QStringLiteral("_libretro");

QHash<QString, QString> CoreInfo(const QString& coreFile, const QStringList& infoFolders) {
    const QString infoName = QFileInfo(coreFile).completeBaseName() + QStringLiteral(".info");
    for (const QString& folder : infoFolders) {
        const QString path = folder + QLatin1Char('/') + infoName;
        if (QFileInfo::exists(path))
            return ReadKeyValueFile(path);
    }
    return {};
}

// "Nintendo - SNES / SFC (bsnes-mercury Performance)" gives "bsnes-mercury Performance".
QString NameInParentheses(const QString& displayName) {
    const qsizetype open = displayName.lastIndexOf(QLatin1Char('('));
    const qsizetype close = displayName.lastIndexOf(QLatin1Char(')'));
    if (open < 0 || close < open + 2)
        return QString();
    return displayName.mid(open + 1, close - open - 1).trimmed();
}

} // namespace

CoreDescription DescribeCore(const CatalogueEntry& entry, const QString& coreFile,
                             const QStringList& infoFolders) {
    const QString fileName = QFileInfo(coreFile).fileName();
    const auto known = std::find_if(entry.Cores.begin(), entry.Cores.end(),
                                    [&](const CoreRule& c) { return c.File == fileName; });
    const QHash<QString, QString> info = CoreInfo(coreFile, infoFolders);

    CoreDescription core;
    core.Name = NameInParentheses(info.value(QStringLiteral("display_name")));
    if (core.Name.isEmpty())
        core.Name = info.value(QStringLiteral("corename"));
    if (core.Name.isEmpty() && known != entry.Cores.end())
        core.Name = known->Name;
    if (core.Name.isEmpty()) {
        core.Name = QFileInfo(coreFile).completeBaseName();
        if (core.Name.endsWith(CoreSuffix))
            core.Name.chop(CoreSuffix.size());
    }
    if (known != entry.Cores.end())
        core.Library = known->Library;
    if (core.Library.isEmpty())
        core.Library = info.value(QStringLiteral("corename"), core.Name);
    core.IsSnes = known != entry.Cores.end() ||
                  entry.CoreSystems.contains(info.value(QStringLiteral("systemid")));
    return core;
}

QList<FoundCore> FindSnesCores(const CatalogueEntry& entry, const QStringList& coreFolders,
                               const QStringList& infoFolders) {
    QList<FoundCore> cores;
    QSet<QString> seen;
    for (const QString& folder : coreFolders) {
        const QDir directory(folder);
        const QStringList files = directory.entryList({QStringLiteral("*_libretro.so")},
                                                      QDir::Files | QDir::Readable, QDir::Name);
        for (const QString& file : files) {
            if (seen.contains(file))
                continue;
            seen.insert(file);
            const QString path = directory.filePath(file);
            const CoreDescription core = DescribeCore(entry, path, infoFolders);
            if (core.IsSnes)
                cores.append({path, core});
        }
    }
    return cores;
}
