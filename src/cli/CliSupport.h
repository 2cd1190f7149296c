#pragma once

#include "cli/CliCommands.h"

#include <QString>
#include <QStringList>

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

// A command that changes the store holds its writer lock from before it reads the
// store until it has written it, so that nothing another writer saved is lost.
// False, with the reason on standard error, while Lumbra's window runs.
bool ClaimStore(CliContext& context, StoreWriterLock& lock);

// The catalogue as the main window's load builds it; what the scan left out goes
// to standard error.
void LoadCatalogue(CliContext& context);
