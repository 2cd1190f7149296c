#pragma once

#include <QString>
#include <array>

struct AppState;

struct EmulatorRecord {
    QString Name;
    QString Folder;
    QString SaveFolder;
    QString LaunchFiles; // file names tried in order, joined by ";"
    QString DefaultProfile;
    QString SnapshotFolder; // not stored: each launch sets it
};

// The three emulators, in this fixed order: Nlke, Snes9X, ZSnes.
class EmulatorTable {
public:
    static constexpr int Count = 3;

    // Index of the emulator named so (without regard to case), or -1; "" gives -1.
    int FindEmulatorIndex(const QString& name) const;

    std::array<EmulatorRecord, Count> Records;
};

// Fills the table: the fixed names and launch files, then folder and save folder
// from the read-only store section "Emulators".
void DefineEmulators(AppState& state);
