#include "emulators/EmulatorCatalogue.h"

#include "config/Emulators.h"
#include "emulators/CatalogueEntryReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <algorithm>

namespace {

bool IsDesignEmulator(const QString& name) {
    for (const QLatin1String designName : EmulatorTable::Names) {
        if (name.compare(designName, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

// Lays one file over the entries read so far; false, with the reason, when the file
// cannot be used at all.
bool MergeFile(const QString& path, QList<QJsonObject>& entries, QStringList& flatpakExports,
               QString& problem) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = file.errorString();
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        problem = error.errorString() + QStringLiteral(" at character %1").arg(error.offset);
        return false;
    }
    const QJsonObject top = document.object();
    const QJsonValue emulators = top.value(QStringLiteral("emulators"));
    if (!document.isObject() || !(emulators.isArray() || emulators.isUndefined())) {
        problem = QStringLiteral("not a catalogue: an object with a list \"emulators\"");
        return false;
    }
    if (top.value(QStringLiteral("flatpakExports")).isArray()) {
        flatpakExports.clear();
        for (const QJsonValue folder : top.value(QStringLiteral("flatpakExports")).toArray())
            flatpakExports.append(folder.toString());
    }
    for (const QJsonValue value : emulators.toArray()) {
        const QJsonObject entry = value.toObject();
        const QString name = entry.value(QStringLiteral("name")).toString();
        if (name.isEmpty()) {
            problem = QStringLiteral("an entry without a \"name\" was left out");
            continue;
        }
        const auto same = std::find_if(entries.begin(), entries.end(), [&](const QJsonObject& e) {
            return e.value(QStringLiteral("name")).toString().compare(name, Qt::CaseInsensitive) ==
                   0;
        });
        if (same == entries.end()) {
            entries.append(entry);
            continue;
        }
        for (auto key = entry.begin(); key != entry.end(); ++key) {
            if (key.key() != QLatin1String("name"))
                same->insert(key.key(), key.value());
        }
    }
    return true;
}

} // namespace

const CatalogueEntry* EmulatorCatalogue::Find(const QString& name) const {
    for (const CatalogueEntry& entry : Entries) {
        if (entry.Name.compare(name, Qt::CaseInsensitive) == 0)
            return &entry;
    }
    return nullptr;
}

QString BuiltInCatalogueFile() {
    const QFileInfo installed(QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../share/lumbra/emulators/emulators.json"));
    return installed.exists() ? installed.canonicalFilePath()
                              : QStringLiteral(LUMBRA_SOURCE_EMULATORS);
}

QStringList PlayerCatalogueFiles() {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                      QStringLiteral("/Lumbra/emulators"));
    QStringList files;
    for (const QString& name :
         folder.entryList({QStringLiteral("*.json")}, QDir::Files | QDir::Readable, QDir::Name))
        files.append(folder.filePath(name));
    return files;
}

EmulatorCatalogue LoadEmulatorCatalogue() {
    return LoadEmulatorCatalogue(QStringList{BuiltInCatalogueFile()} + PlayerCatalogueFiles());
}

EmulatorCatalogue LoadEmulatorCatalogue(const QStringList& files) {
    EmulatorCatalogue catalogue;
    QList<QJsonObject> merged;
    for (const QString& path : files) {
        QString problem;
        if (!MergeFile(path, merged, catalogue.FlatpakExports, problem) || !problem.isEmpty())
            catalogue.Problems.append(path + QStringLiteral(": ") + problem);
    }
    for (const QJsonObject& object : merged) {
        if (object.value(QStringLiteral("disabled")).toBool())
            continue;
        QString problem;
        const CatalogueEntry entry = ReadCatalogueEntry(object, problem);
        if (problem.isEmpty() && IsDesignEmulator(entry.Name))
            problem = QStringLiteral("the name belongs to one of Lumbra's own three emulators");
        if (!problem.isEmpty()) {
            catalogue.Problems.append(QStringLiteral("Emulator \"") + entry.Name +
                                      QStringLiteral("\" left out: ") + problem);
            continue;
        }
        catalogue.Entries.append(entry);
    }
    return catalogue;
}
