#include "emulators/EmulatorHome.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/Placeholders.h"

#include <QFileInfo>

QString EmulatorHome(const CatalogueEntry& entry, const QString& installHome,
                     const QString& program, const EmulatorEnvironment& environment) {
    const QHash<QString, QString> values{
        {QStringLiteral("programdir"), QFileInfo(program).absolutePath()}};
    if (!installHome.isEmpty())
        return ExpandPath(installHome, environment, values).value_or(QString());
    for (const HomeRule& rule : entry.Homes) {
        const std::optional<QString> folder = ExpandPath(rule.Folder, environment, values);
        if (!folder)
            continue;
        if (!rule.IfExists.isEmpty()) {
            const std::optional<QString> file = ExpandPath(rule.IfExists, environment, values);
            if (!file || !QFileInfo::exists(*file))
                continue;
        }
        return *folder;
    }
    return QString();
}
