#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <optional>

class EmulatorEnvironment;

// The value of one placeholder, given its name and the text after its ":" ("{slot:3}"
// gives "slot" and "3"); nothing when it has no value here.
using PlaceholderValue =
    std::function<std::optional<QString>(const QString& name, const QString& argument)>;

// The text with each "{name}" or "{name:argument}" replaced by its value, and the text
// between them passed through literal when one is given (to escape it for a regular
// expression). Nothing when any placeholder has no value.
std::optional<QString> FillPlaceholders(const QString& text, const PlaceholderValue& value,
                                        const std::function<QString(const QString&)>& literal = {});

// A leading "~" of a path is the home folder.
QString ExpandTilde(const QString& path, const EmulatorEnvironment& environment);

// A catalogue path: a leading "~" is the home folder, "{config}" and "{data}" the XDG
// folders, "{env:NAME}" a variable, and any other name is looked up in values. Nothing
// when a placeholder has no value (an unset or empty variable, a name not in values).
std::optional<QString> ExpandPath(const QString& text, const EmulatorEnvironment& environment,
                                  const QHash<QString, QString>& values = {});
