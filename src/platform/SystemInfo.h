#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class Prompts;
class SystemShell;

// The desktops' own system-information programs, in the order they are looked for.
QStringList SystemInfoTools();

// The first of them installed in one of the folders, or on the PATH when none are
// given; nothing when none is.
std::optional<QString> FindSystemInfoTool(const QStringList& folders = {});

// What Qt knows about this system, one fact a line.
QString SystemFacts();

// Starts the first system-information program found; when none is installed, shows
// the facts in a message instead.
void ShowSystemInfo(SystemShell& shell, Prompts& prompts, const QStringList& folders = {});
