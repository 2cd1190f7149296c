#include "emulators/CatalogueEntryReader.h"

#include <QJsonArray>
#include <QJsonObject>
#include <utility>

namespace {

// Reads one entry's JSON object, keeping the first problem it meets.
class EntryReader {
public:
    QString Problem;

    QString Text(const QJsonObject& object, const QString& key) {
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return QString();
        if (!value.isString())
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be a text"));
        return value.toString();
    }

    QStringList Texts(const QJsonObject& object, const QString& key) {
        QStringList texts;
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return texts;
        const auto fail = [&] {
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be a list of texts"));
        };
        if (!value.isArray()) {
            fail();
            return texts;
        }
        for (const QJsonValue item : value.toArray()) {
            if (!item.isString())
                fail();
            texts.append(item.toString());
        }
        return texts;
    }

    bool Switch(const QJsonObject& object, const QString& key, bool fallback) {
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return fallback;
        if (!value.isBool())
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be true or false"));
        return value.toBool(fallback);
    }

    int Number(const QJsonObject& object, const QString& key, int fallback) {
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return fallback;
        if (!value.isDouble() || value.toDouble() != value.toInt())
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be a whole number"));
        return value.toInt(fallback);
    }

    QJsonObject Object(const QJsonObject& object, const QString& key) {
        const QJsonValue value = object.value(key);
        if (!value.isUndefined() && !value.isObject())
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be an object"));
        return value.toObject();
    }

    QList<QJsonObject> Objects(const QJsonObject& object, const QString& key) {
        QList<QJsonObject> objects;
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return objects;
        if (!value.isArray()) {
            Fail(QLatin1Char('"') + key + QStringLiteral("\" must be a list"));
            return objects;
        }
        for (const QJsonValue item : value.toArray()) {
            if (!item.isObject())
                Fail(QLatin1Char('"') + key + QStringLiteral("\" must be a list of objects"));
            objects.append(item.toObject());
        }
        return objects;
    }

    void Fail(const QString& problem) {
        if (Problem.isEmpty())
            Problem = problem;
    }
};

FindRule ReadFindRule(EntryReader& reader, const QJsonObject& object) {
    FindRule rule;
    int kinds = 0;
    for (const auto& [key, kind] :
         {std::pair{QStringLiteral("program"), FindRule::Kind::Program},
          std::pair{QStringLiteral("file"), FindRule::Kind::File},
          std::pair{QStringLiteral("flatpak"), FindRule::Kind::Flatpak}}) {
        if (!object.contains(key))
            continue;
        ++kinds;
        rule.Type = kind;
        rule.Target = reader.Text(object, key);
    }
    if (kinds != 1 || rule.Target.isEmpty())
        reader.Fail(QStringLiteral("each \"find\" rule names one \"program\", \"file\" or "
                                   "\"flatpak\""));
    rule.Arguments = reader.Texts(object, QStringLiteral("arguments"));
    if (rule.Type == FindRule::Kind::Flatpak)
        rule.Arguments =
            QStringList{QStringLiteral("run")} + rule.Arguments + QStringList{rule.Target};
    rule.Home = reader.Text(object, QStringLiteral("home"));
    rule.CoreFolders = reader.Texts(object, QStringLiteral("coreFolders"));
    return rule;
}

QList<HomeRule> ReadHomes(EntryReader& reader, const QJsonObject& entry) {
    QList<HomeRule> homes;
    const QJsonValue value = entry.value(QStringLiteral("home"));
    if (value.isUndefined())
        return homes;
    if (value.isString())
        return {HomeRule{value.toString(), QString()}};
    for (const QJsonValue item : value.toArray()) {
        if (item.isString()) {
            homes.append({item.toString(), QString()});
        } else if (item.isObject()) {
            const QJsonObject object = item.toObject();
            homes.append({reader.Text(object, QStringLiteral("folder")),
                          reader.Text(object, QStringLiteral("ifExists"))});
        } else {
            reader.Fail(QStringLiteral("\"home\" must be a list of folders"));
        }
    }
    if (!value.isArray())
        reader.Fail(QStringLiteral("\"home\" must be a list of folders"));
    return homes;
}

void ReadLocation(EntryReader& reader, const QJsonObject& object, FileLocation& location) {
    location.Folder = reader.Text(object, QStringLiteral("folder"));
    location.Setting = reader.Text(object, QStringLiteral("setting"));
    location.BesideGameSetting = reader.Text(object, QStringLiteral("besideGameSetting"));
    for (const QJsonObject& subfolder : reader.Objects(object, QStringLiteral("subfolders")))
        location.Subfolders.append({reader.Text(subfolder, QStringLiteral("setting")),
                                    reader.Text(subfolder, QStringLiteral("folder"))});
}

StateRules ReadStates(EntryReader& reader, const QJsonObject& object) {
    StateRules states;
    ReadLocation(reader, object, states);
    const QJsonObject slotRules = reader.Object(object, QStringLiteral("slots"));
    if (!slotRules.isEmpty()) {
        states.FirstSlot = reader.Number(slotRules, QStringLiteral("first"), 0);
        states.LastSlot = reader.Number(slotRules, QStringLiteral("last"), -1);
        states.SlotName = reader.Text(slotRules, QStringLiteral("name"));
        const QJsonObject names = reader.Object(slotRules, QStringLiteral("names"));
        for (auto name = names.begin(); name != names.end(); ++name) {
            bool isNumber = false;
            const int slot = name.key().toInt(&isNumber);
            if (!isNumber || !name.value().isString())
                reader.Fail(QStringLiteral("\"names\" of the slots maps slot numbers to names"));
            states.SlotNames.insert(slot, name.value().toString());
        }
        if (states.SlotName.isEmpty() && states.LastSlot >= states.FirstSlot)
            reader.Fail(QStringLiteral("\"slots\" needs a \"name\""));
        if (states.FirstSlot < 0 || states.FirstSlot > 999)
            reader.Fail(QStringLiteral("\"slots\" start at a number from 0 to 999"));
        else if (qint64(states.LastSlot) - states.FirstSlot >= 1000)
            reader.Fail(QStringLiteral("\"slots\" holds more than 1,000 slots"));
    }
    states.AutoName = reader.Text(object, QStringLiteral("auto"));
    states.AllName = reader.Text(object, QStringLiteral("all"));
    return states;
}

CatalogueEntry ReadEntry(EntryReader& reader, const QJsonObject& object) {
    CatalogueEntry entry;
    entry.Name = reader.Text(object, QStringLiteral("name"));
    for (const QJsonObject& rule : reader.Objects(object, QStringLiteral("find")))
        entry.Find.append(ReadFindRule(reader, rule));
    if (entry.Find.isEmpty())
        reader.Fail(QStringLiteral("\"find\" needs at least one rule"));
    entry.Homes = ReadHomes(reader, object);
    entry.CoreFolders = reader.Texts(object, QStringLiteral("coreFolders"));
    entry.CoreInfoFolders = reader.Texts(object, QStringLiteral("coreInfoFolders"));
    entry.CoreSystems = reader.Texts(object, QStringLiteral("coreSystems"));
    for (const QJsonObject& core : reader.Objects(object, QStringLiteral("cores"))) {
        entry.Cores.append({reader.Text(core, QStringLiteral("file")),
                            reader.Text(core, QStringLiteral("name")),
                            reader.Text(core, QStringLiteral("library"))});
        if (entry.Cores.last().File.isEmpty())
            reader.Fail(QStringLiteral("each of the \"cores\" needs a \"file\""));
    }
    entry.Command = reader.Texts(object, QStringLiteral("command"));
    if (entry.Command.value(0) != QLatin1String("{program}") ||
        !entry.Command.join(QLatin1Char(' ')).contains(QLatin1String("{game}")))
        reader.Fail(QStringLiteral("\"command\" must start with \"{program}\" and hold "
                                   "\"{game}\""));
    entry.ReadsZip = reader.Switch(object, QStringLiteral("readsZip"), true);
    const QString namesFrom = reader.Text(object, QStringLiteral("namesFrom"));
    if (!namesFrom.isEmpty() && namesFrom != QLatin1String("archive") &&
        namesFrom != QLatin1String("inner"))
        reader.Fail(QStringLiteral("\"namesFrom\" is \"archive\" or \"inner\""));
    entry.NamesFromInnerFile = namesFrom == QLatin1String("inner");
    entry.SettingsFile = reader.Text(object, QStringLiteral("settingsFile"));

    const QJsonObject screenshots = reader.Object(object, QStringLiteral("screenshots"));
    ReadLocation(reader, screenshots, entry.Screenshots);
    entry.Screenshots.Names = reader.Texts(screenshots, QStringLiteral("names"));
    entry.States = ReadStates(reader, reader.Object(object, QStringLiteral("states")));
    const QJsonObject saves = reader.Object(object, QStringLiteral("saves"));
    ReadLocation(reader, saves, entry.Saves);
    entry.Saves.BatteryName = reader.Text(saves, QStringLiteral("battery"));
    return entry;
}

} // namespace

CatalogueEntry ReadCatalogueEntry(const QJsonObject& object, QString& problem) {
    EntryReader reader;
    CatalogueEntry entry = ReadEntry(reader, object);
    problem = reader.Problem;
    return entry;
}
