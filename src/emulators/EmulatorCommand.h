#pragma once

#include <QString>
#include <QStringList>

struct FoundEmulator;

// A program and its arguments, each one entry of the started program's argv: no
// shell reads them.
struct EmulatorCommand {
    QString Program; // empty when the command names none
    QStringList Arguments;

    friend bool operator==(const EmulatorCommand&, const EmulatorCommand&) = default;
};

// The found emulator's command with its placeholders filled. The command is split
// into words as a command line is (double quotes group); a word that is a placeholder
// alone becomes: "{program}" the program, "{core}" the core, "{game}" the game's path
// as one argument, and "{options}" the option text split the same way (no argument
// when it is blank). A placeholder inside a word ("--rom={game}") is replaced there
// and the word stays one argument; an unknown one stays as it is. The first word is
// the program.
EmulatorCommand ExpandEmulatorCommand(const FoundEmulator& emulator, const QString& options,
                                      const QString& gamePath);

// The command as the player reads it: the program and the core filled in, "{options}"
// and "{game}" kept, each word quoted where it needs to be.
QString CommandPreview(const FoundEmulator& emulator);
