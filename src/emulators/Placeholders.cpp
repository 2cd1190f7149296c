#include "emulators/Placeholders.h"

#include "emulators/EmulatorEnvironment.h"

#include <QRegularExpression>

std::optional<QString> FillPlaceholders(const QString& text, const PlaceholderValue& value,
                                        const std::function<QString(const QString&)>& literal) {
    static const QRegularExpression Placeholder(
        QStringLiteral("\\{([A-Za-z][A-Za-z0-9]*)(?::([^{}]*))?\\}"));
    const auto passed = [&literal](const QString& piece) {
        return literal ? literal(piece) : piece;
    };
    QString filled;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : Placeholder.globalMatch(text)) {
        const std::optional<QString> replacement = value(match.captured(1), match.captured(2));
        if (!replacement)
            return std::nullopt;
        filled += passed(text.mid(from, match.capturedStart() - from)) + *replacement;
        from = match.capturedEnd();
    }
    return filled + passed(text.mid(from));
}

QString ExpandTilde(const QString& path, const EmulatorEnvironment& environment) {
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        return environment.Home() + path.mid(1);
    return path;
}

std::optional<QString> ExpandPath(const QString& text, const EmulatorEnvironment& environment,
                                  const QHash<QString, QString>& values) {
    const auto value = [&](const QString& name, const QString& argument) -> std::optional<QString> {
        QString found;
        if (name == QLatin1String("config"))
            found = environment.ConfigHome();
        else if (name == QLatin1String("data"))
            found = environment.DataHome();
        else if (name == QLatin1String("env"))
            found = environment.Variable(argument);
        else
            found = values.value(name);
        if (found.isEmpty())
            return std::nullopt;
        return found;
    };
    const std::optional<QString> filled = FillPlaceholders(ExpandTilde(text, environment), value);
    if (!filled || filled->isEmpty())
        return std::nullopt;
    return *filled;
}
