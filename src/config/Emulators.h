#pragma once

#include <QString>
#include <array>

class SettingsStore;

struct EmulatorRecord {
    QString Name;
    QString Folder;
    QString SaveFolder;
    QString LaunchFiles; // file names tried in order, joined by ";"
    QString DefaultProfile;
    QString SnapshotFolder; // not stored: each launch sets it

    friend bool operator==(const EmulatorRecord&, const EmulatorRecord&) = default;
};

// The three emulators, in this fixed order: Nlke, Snes9X, ZSnes.
// A game's choice of emulator or profile: the choice itself, or the fallback when it
// is empty or "Default" (in any letter case).
QString ChosenOrDefault(const QString& choice, const QString& fallback);

class EmulatorTable {
public:
    static constexpr int Count = 3;
    // The fixed names, in table order.
    static constexpr std::array<QLatin1String, Count> Names{
        QLatin1String("Nlke"), QLatin1String("Snes9X"), QLatin1String("ZSnes")};

    // Index of the emulator named so (without regard to case), or -1; "" gives -1.
    int FindEmulatorIndex(const QString& name) const;
    // The emulator a game starts in: its own, or the default one when the game's is
    // empty or "Default". -1 when neither names one of the three.
    int GameEmulatorIndex(const QString& gameEmulator, const QString& defaultEmulator) const;

    std::array<EmulatorRecord, Count> Records;
};

// Fills the table: the fixed names and launch files, then folder and save folder
// from the read-only store section "Emulators".
void DefineEmulators(EmulatorTable& emulators, const SettingsStore& store);
