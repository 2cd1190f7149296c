#include "emulators/EmulatorCommand.h"

#include "emulators/FoundEmulators.h"
#include "emulators/Placeholders.h"
#include "platform/CommandLine.h"

EmulatorCommand ExpandEmulatorCommand(const FoundEmulator& emulator, const QString& options,
                                      const QString& gamePath) {
    const QHash<QString, QString> values{{QStringLiteral("program"), emulator.Program},
                                         {QStringLiteral("core"), emulator.Core},
                                         {QStringLiteral("game"), gamePath},
                                         {QStringLiteral("options"), options}};
    const auto value = [&values](const QString& name,
                                 const QString& argument) -> std::optional<QString> {
        if (argument.isEmpty() && values.contains(name))
            return values.value(name);
        const QString rest = argument.isEmpty() ? QString() : QLatin1Char(':') + argument;
        return QLatin1Char('{') + name + rest + QLatin1Char('}');
    };
    QStringList words;
    for (const QString& word : SplitArguments(emulator.Command)) {
        if (word == QLatin1String("{options}"))
            words.append(SplitArguments(options));
        else
            words.append(FillPlaceholders(word, value).value_or(word));
    }
    EmulatorCommand command;
    if (!words.isEmpty())
        command.Program = words.takeFirst();
    command.Arguments = words;
    return command;
}

QString CommandPreview(const FoundEmulator& emulator) {
    const EmulatorCommand command =
        ExpandEmulatorCommand(emulator, QStringLiteral("{options}"), QStringLiteral("{game}"));
    QStringList words;
    for (const QString& word : QStringList{command.Program} + command.Arguments)
        words.append(QuoteCommandLineArgument(word));
    return words.join(QLatin1Char(' '));
}
