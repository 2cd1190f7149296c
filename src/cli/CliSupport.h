#pragma once

#include "cli/CliCommands.h"

#include <QString>
#include <QStringList>
#include <optional>

class StoreWriterLock;

// The store target word every command reads and writes with.
inline const QString Store = QStringLiteral("reg");

int UsageError(CliContext& context, const QString& message);
// Reports a refused change with the log's reason.
int Refused(CliContext& context);

// Takes a flag out of the arguments; true when it was there.
bool TakeFlag(QStringList& arguments, const QString& flag);
// Takes "--option VALUE" out of the arguments; false when the value is missing.
bool TakeOption(QStringList& arguments, const QString& option, QString& value);

// An existing folder as the store keeps it: absolute, with a trailing separator.
// Nothing, with the reason on standard error, when there is no such folder.
std::optional<QString> StoredFolder(CliContext& context, const QString& path);

// The game a command names: "--index N" or a CAPTION.
struct GameChoice {
    QString IndexText;
    QString Caption;
};
// Takes the choice out of the arguments, which must hold nothing else; nothing when
// they do not name one game (a usage error).
std::optional<GameChoice> TakeGameChoice(QStringList& arguments);
// The chosen game's index in the catalogue loaded before; nothing, with the reason on
// standard error, when there is no such game.
std::optional<int> FindChosenGame(CliContext& context, const GameChoice& choice);

// A command that changes the store holds its writer lock from before it reads the
// store until it has written it, so that nothing another writer saved is lost.
// False, with the reason on standard error, while Lumbra's window runs.
bool ClaimStore(CliContext& context, StoreWriterLock& lock);

// The catalogue as the main window's load builds it; what the scan left out goes
// to standard error.
void LoadCatalogue(CliContext& context);
