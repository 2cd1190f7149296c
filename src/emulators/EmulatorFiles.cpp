#include "emulators/EmulatorFiles.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorHome.h"
#include "emulators/FoundEmulators.h"
#include "emulators/KeyValueFile.h"
#include "emulators/LibretroCores.h"
#include "emulators/Placeholders.h"
#include "rom/ArchivedGame.h"
#include "rom/GameImage.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {

// What the names and folders of one game's files are made of, the costly parts (the
// image inside an archive, the md5) worked out once and only when a name needs them.
class GameFacts {
public:
    GameFacts(const CatalogueEntry& entry, const QString& gamePath)
        : m_path(gamePath), m_info(gamePath) {
        m_zipped = IsZippedGame(gamePath);
        m_base = m_info.completeBaseName();
        if (m_zipped && entry.NamesFromInnerFile) {
            if (const std::optional<ArchivedGame> inner = ReadArchivedGame(m_path, false))
                m_base = QFileInfo(inner->Name).completeBaseName();
        }
    }

    const QString& Base() const { return m_base; }
    QString Folder() const { return m_info.absolutePath(); }
    QString FolderName() const { return QFileInfo(Folder()).fileName(); }

    // The md5 of the image without a copier header; empty when it cannot be read.
    const QString& Md5() {
        if (m_md5)
            return *m_md5;
        QByteArray bytes;
        if (m_zipped) {
            if (const std::optional<ArchivedGame> inner = ReadArchivedGame(m_path, true))
                bytes = inner->Bytes;
        } else {
            QFile file(m_path);
            if (file.open(QIODevice::ReadOnly) && file.size() <= MaxArchivedGameBytes)
                bytes = file.readAll();
        }
        if (bytes.size() % 1024 == 512)
            bytes.remove(0, 512);
        m_md5 = bytes.isEmpty()
                    ? QString()
                    : QString::fromLatin1(
                          QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
        return *m_md5;
    }

private:
    QString m_path;
    QFileInfo m_info;
    bool m_zipped = false;
    QString m_base;
    std::optional<QString> m_md5;
};

std::optional<QString> NonEmpty(const QString& text) {
    return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

// A placeholder's width ("{slot:3}", "{digits:14}"), kept to what a file name can hold.
int PlaceholderWidth(const QString& argument) {
    return std::clamp(argument.toInt(), 0, 32);
}

// The value of a placeholder of the game's file names: "{base}", "{md5}", and
// "{slot}" or "{slot:WIDTH}" when a slot is given (not -1).
std::optional<QString> NameValue(const QString& name, const QString& argument, GameFacts& game,
                                 int slot) {
    if (name == QLatin1String("base"))
        return NonEmpty(game.Base());
    if (name == QLatin1String("md5"))
        return NonEmpty(game.Md5());
    if (name == QLatin1String("slot") && slot >= 0)
        return QStringLiteral("%1").arg(slot, PlaceholderWidth(argument), 10, QLatin1Char('0'));
    return std::nullopt;
}

std::optional<QString> FileName(const QString& pattern, GameFacts& game, int slot) {
    if (pattern.isEmpty())
        return std::nullopt;
    return FillPlaceholders(pattern, [&](const QString& name, const QString& argument) {
        return NameValue(name, argument, game, slot);
    });
}

// One expression for the screenshot name patterns, where "{digits:N}" stands for N
// decimal digits (and "{digits}" for any number of them).
QRegularExpression ScreenshotPattern(const QStringList& patterns, GameFacts& game) {
    const auto value = [&](const QString& name, const QString& argument) -> std::optional<QString> {
        if (name == QLatin1String("digits"))
            return argument.isEmpty() ? QStringLiteral("\\d+")
                                      : QStringLiteral("\\d{%1}").arg(PlaceholderWidth(argument));
        const std::optional<QString> text = NameValue(name, argument, game, -1);
        return text ? std::optional<QString>(QRegularExpression::escape(*text)) : std::nullopt;
    };
    const auto literal = [](const QString& text) { return QRegularExpression::escape(text); };
    QStringList alternatives;
    for (const QString& pattern : patterns) {
        if (const std::optional<QString> expression = FillPlaceholders(pattern, value, literal))
            alternatives.append(*expression);
    }
    if (alternatives.isEmpty())
        return QRegularExpression(QStringLiteral("(?!)")); // matches nothing
    return QRegularExpression(QStringLiteral("\\A(?:") + alternatives.join(QLatin1Char('|')) +
                              QStringLiteral(")\\z"));
}

// Works out the folders of one found emulator for one game.
class Locations {
public:
    Locations(const CatalogueEntry& entry, const FoundEmulator& emulator, GameFacts& game,
              const EmulatorEnvironment& environment)
        : m_environment(environment), m_gameFolder(game.Folder()) {
        const QString home = EmulatorHome(entry, emulator.Home, emulator.Program, environment);
        m_values = {{QStringLiteral("home"), home},
                    {QStringLiteral("programdir"), QFileInfo(emulator.Program).absolutePath()},
                    {QStringLiteral("gamedir"), m_gameFolder},
                    {QStringLiteral("gamefolder"), game.FolderName()}};
        if (!emulator.Core.isEmpty()) {
            QStringList infoFolders;
            for (const QString& folder : entry.CoreInfoFolders) {
                if (const auto path = ExpandPath(folder, environment, m_values))
                    infoFolders.append(*path);
            }
            m_values.insert(QStringLiteral("library"),
                            DescribeCore(entry, emulator.Core, infoFolders).Library);
        }
        if (const auto file = ExpandPath(entry.SettingsFile, environment, m_values))
            m_settings = ReadKeyValueFile(*file);
    }

    QString Folder(const FileLocation& location, const QString& playerFolder) const {
        if (!playerFolder.isEmpty())
            return QDir::cleanPath(ExpandTilde(playerFolder, m_environment));
        if (location.Folder.isEmpty())
            return QString();
        QString folder;
        if (!location.BesideGameSetting.isEmpty() &&
            m_settings.value(location.BesideGameSetting) == QLatin1String("true"))
            return m_gameFolder;
        if (!location.Setting.isEmpty() && m_settings.contains(location.Setting)) {
            const QString value = m_settings.value(location.Setting);
            if (value.isEmpty())
                return m_gameFolder;
            if (value != QLatin1String("default") && !value.startsWith(QLatin1Char(':')))
                folder = ExpandTilde(value, m_environment);
        }
        if (folder.isEmpty())
            folder = ExpandPath(location.Folder, m_environment, m_values).value_or(QString());
        if (folder.isEmpty())
            return QString();
        for (const SubfolderRule& subfolder : location.Subfolders) {
            if (m_settings.value(subfolder.Setting) != QLatin1String("true"))
                continue;
            if (const auto name = ExpandPath(subfolder.Folder, m_environment, m_values))
                folder += QLatin1Char('/') + *name;
        }
        return QDir::cleanPath(folder);
    }

private:
    const EmulatorEnvironment& m_environment;
    QString m_gameFolder;
    QHash<QString, QString> m_values;
    QHash<QString, QString> m_settings;
};

std::optional<EmulatorFile> FileIn(const QString& folder, const std::optional<QString>& name,
                                   EmulatorFileKind kind, int slot = -1) {
    if (folder.isEmpty() || !name)
        return std::nullopt;
    const QString path = folder + QLatin1Char('/') + *name;
    return EmulatorFile{kind, slot, path, QFileInfo::exists(path)};
}

} // namespace

bool EmulatorGameFiles::IsScreenshot(const QString& fileName) const {
    return ScreenshotName.match(fileName).hasMatch();
}

QStringList EmulatorGameFiles::Screenshots() const {
    QStringList screenshots;
    if (ScreenshotFolder.isEmpty())
        return screenshots;
    const QDir folder(ScreenshotFolder);
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        if (IsScreenshot(name))
            screenshots.append(folder.filePath(name));
    }
    return screenshots;
}

QList<EmulatorFile> EmulatorGameFiles::ExistingFiles() const {
    QList<EmulatorFile> existing;
    for (const EmulatorFile& file : States) {
        if (file.Exists)
            existing.append(file);
    }
    if (Battery && Battery->Exists)
        existing.append(*Battery);
    return existing;
}

EmulatorGameFiles GameFilesFor(const CatalogueEntry& entry, const FoundEmulator& emulator,
                               const QString& gamePath, const EmulatorEnvironment& environment) {
    GameFacts game(entry, gamePath);
    const Locations locations(entry, emulator, game, environment);
    EmulatorGameFiles files;
    files.Base = game.Base();
    files.StateFolder = locations.Folder(entry.States, emulator.StateFolder);
    files.SaveFolder = locations.Folder(entry.Saves, emulator.SaveFolder);
    files.ScreenshotFolder = locations.Folder(entry.Screenshots, emulator.ScreenshotFolder);

    const StateRules& states = entry.States;
    for (int slot = states.FirstSlot; slot <= states.LastSlot; ++slot) {
        const QString pattern = states.SlotNames.value(slot, states.SlotName);
        if (const auto file = FileIn(files.StateFolder, FileName(pattern, game, slot),
                                     EmulatorFileKind::StateSlot, slot))
            files.States.append(*file);
    }
    for (const auto& [pattern, kind] : {std::pair{states.AutoName, EmulatorFileKind::AutoState},
                                        std::pair{states.AllName, EmulatorFileKind::AllStates}}) {
        if (const auto file = FileIn(files.StateFolder, FileName(pattern, game, -1), kind))
            files.States.append(*file);
    }
    files.Battery = FileIn(files.SaveFolder, FileName(entry.Saves.BatteryName, game, -1),
                           EmulatorFileKind::BatterySave);
    files.ScreenshotName = ScreenshotPattern(entry.Screenshots.Names, game);
    return files;
}
