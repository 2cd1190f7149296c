#include "emulators/EmulatorDetection.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/EmulatorHome.h"
#include "emulators/LibretroCores.h"
#include "emulators/Placeholders.h"
#include "platform/CommandLine.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

// An emulator installed in one of the ways a find rule describes.
struct Install {
    QString Program;
    const FindRule* Rule = nullptr;
};

bool IsProgram(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable();
}

// A path whose file name may hold "*": the last match in name order, so that of
// several versions side by side the newest name wins.
QString FindFile(const QString& path) {
    const QFileInfo pattern(path);
    if (!pattern.fileName().contains(QLatin1Char('*')))
        return IsProgram(path) ? path : QString();
    const QDir folder = pattern.dir();
    const QStringList matches =
        folder.entryList({pattern.fileName()}, QDir::Files | QDir::Executable, QDir::Name);
    return matches.isEmpty() ? QString() : folder.filePath(matches.last());
}

QString FindProgram(const FindRule& rule, const EmulatorCatalogue& catalogue,
                    const EmulatorEnvironment& environment) {
    switch (rule.Type) {
    case FindRule::Kind::Program:
        return FindInSearchPath(rule.Target, environment);
    case FindRule::Kind::File: {
        const std::optional<QString> path = ExpandPath(rule.Target, environment);
        return path ? FindFile(*path) : QString();
    }
    case FindRule::Kind::Flatpak:
        for (const QString& exports : catalogue.FlatpakExports) {
            const std::optional<QString> folder = ExpandPath(exports, environment);
            if (folder && QFileInfo::exists(*folder + QLatin1Char('/') + rule.Target))
                return FindInSearchPath(QStringLiteral("flatpak"), environment);
        }
        return QString();
    }
    return QString();
}

std::optional<Install> FindInstall(const CatalogueEntry& entry, const EmulatorCatalogue& catalogue,
                                   const EmulatorEnvironment& environment) {
    for (const FindRule& rule : entry.Find) {
        const QString program = FindProgram(rule, catalogue, environment);
        if (!program.isEmpty())
            return Install{program, &rule};
    }
    return std::nullopt;
}

QString CommandText(const CatalogueEntry& entry, const FindRule& rule) {
    QStringList tokens = entry.Command;
    for (qsizetype index = 0; index < rule.Arguments.size(); ++index)
        tokens.insert(1 + index, rule.Arguments.at(index));
    QStringList quoted;
    for (const QString& token : tokens)
        quoted.append(QuoteCommandLineArgument(token));
    return quoted.join(QLatin1Char(' '));
}

QStringList ExpandFolders(const QStringList& folders, const EmulatorEnvironment& environment,
                          const QString& home) {
    QStringList expanded;
    for (const QString& folder : folders) {
        if (const auto path = ExpandPath(folder, environment, {{QStringLiteral("home"), home}}))
            expanded.append(*path);
    }
    return expanded;
}

} // namespace

QString FindInSearchPath(const QString& program, const EmulatorEnvironment& environment) {
    for (const QString& folder : environment.SearchPath()) {
        const QString path = QDir(folder).absoluteFilePath(program);
        if (IsProgram(path))
            return path;
    }
    return QString();
}

QList<FoundEmulator> DetectEmulators(const EmulatorCatalogue& catalogue,
                                     const EmulatorEnvironment& environment) {
    QList<FoundEmulator> found;
    for (const CatalogueEntry& entry : catalogue.Entries) {
        const std::optional<Install> install = FindInstall(entry, catalogue, environment);
        if (!install)
            continue;
        FoundEmulator emulator;
        emulator.Name = entry.Name;
        emulator.Entry = entry.Name;
        emulator.Program = install->Program;
        emulator.Command = CommandText(entry, *install->Rule);
        emulator.Home = install->Rule->Home;
        if (!entry.TakesCores()) {
            found.append(emulator);
            continue;
        }
        const QString home = EmulatorHome(entry, emulator.Home, emulator.Program, environment);
        const QStringList coreFolders =
            install->Rule->CoreFolders.isEmpty() ? entry.CoreFolders : install->Rule->CoreFolders;
        for (const FoundCore& core :
             FindSnesCores(entry, ExpandFolders(coreFolders, environment, home),
                           ExpandFolders(entry.CoreInfoFolders, environment, home))) {
            FoundEmulator withCore = emulator;
            withCore.Name =
                entry.Name + QStringLiteral(" (") + core.Description.Name + QLatin1Char(')');
            withCore.Core = core.Path;
            if (std::none_of(found.begin(), found.end(),
                             [&](const FoundEmulator& f) { return f.Name == withCore.Name; }))
                found.append(withCore);
        }
    }
    return found;
}
