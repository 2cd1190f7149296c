#include "support/FakeSystem.h"

#include "emulators/EmulatorCatalogue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonValue Rerooted(const QJsonValue& value, const FakeSystem& system) {
    if (value.isString() && value.toString().startsWith(QLatin1Char('/')))
        return system.Root(value.toString());
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue item : value.toArray())
            array.append(Rerooted(item, system));
        return array;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            member.value() = Rerooted(member.value(), system);
        return object;
    }
    return value;
}

} // namespace

FakeSystem::FakeSystem(const QString& folder) : m_folder(folder) {
    QDir().mkpath(Home());
    QDir().mkpath(Bin());
}

QString FakeSystem::Root(const QString& absolutePath) const {
    return m_folder + QStringLiteral("/root") + absolutePath;
}

QString FakeSystem::WriteFile(const QString& path, const QByteArray& bytes) const {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QString FakeSystem::WriteProgram(const QString& path) const {
    WriteFile(path, "#!/bin/sh\nexit 0\n");
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ExeOwner);
    return path;
}

QString FakeSystem::WriteCatalogue(const QString& path) const {
    QFile builtIn(BuiltInCatalogueFile());
    builtIn.open(QIODevice::ReadOnly);
    const QJsonValue catalogue =
        Rerooted(QJsonDocument::fromJson(builtIn.readAll()).object(), *this);
    const QString target = path.isEmpty() ? m_folder + QStringLiteral("/catalogue.json") : path;
    return WriteFile(target, QJsonDocument(catalogue.toObject()).toJson());
}

QProcessEnvironment FakeSystem::Environment() const {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("HOME"), Home());
    environment.insert(QStringLiteral("PATH"), Bin());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Home() + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), Home() + QStringLiteral("/.local/share"));
    return environment;
}
