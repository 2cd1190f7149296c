#pragma once

#include <QString>
#include <QStringList>

// An emulator for tests: a small /bin/sh script that, each time it runs,
//  1. writes its current folder to "<name>.cwd.txt" beside itself,
//  2. writes a small file into its save folder (by default "save/" beside itself,
//     made when the script is written) under the first free name of "shot1.png",
//     "shot2.png", ..., standing in for a screenshot taken during play (nothing
//     that takes it decodes it),
//  3. writes its arguments, one a line, to "<name>.args.txt" beside itself, whole,
//     as its last step, and exits 0.
// The file paths are fixed when the script is written, so it records to the same
// place however it is started (by a link, by /bin/sh, from any folder).
//
//     const StandInEmulator zsnes = WriteStandInEmulator(folder, "zsnes");
//     shell.ShellAndWait(zsnes.Path + " game.smc", "ShellAndWait");
//     EXPECT_EQ(zsnes.Arguments(), QStringList{"game.smc"});
struct StandInEmulator {
    QString Path;       // the script
    QString SaveFolder; // where its screenshots go

    // Whether it has run: its arguments file is there.
    bool Ran() const;
    // The arguments of its last run; empty when it has not run.
    QStringList Arguments() const;
    // The current folder of its last run.
    QString WorkingFolder() const;
    // The screenshots in its save folder, sorted by name.
    QStringList Screenshots() const;
    // Forgets the last run (removes the arguments and folder records).
    void Reset() const;
};

// Writes the script folder/name, with execute permission unless executable is false
// (it then only runs through /bin/sh). An empty saveFolder means folder/save.
StandInEmulator WriteStandInEmulator(const QString& folder, const QString& name,
                                     bool executable = true, const QString& saveFolder = {});

// Writes an executable /bin/sh script at path running the given lines, for an
// emulator that must do something of its own (write where a real one writes, fail).
QString WriteStandInScript(const QString& path, const QByteArray& lines);
