#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class SettingsStore;

// An emulator that detection found on this system. The settings store keeps each in
// the section "Found Emulators", under its name, as one value of nine fields joined by
// ";" (a ";" or "%" inside a field is written "%3B" or "%25"):
//   1 catalogue entry   2 program   3 core (empty without cores)   4 command
//   5 default profile   6 home of this install (empty: the entry's own)
//   7 screenshot folder   8 save-state folder   9 battery-save folder
// Fields 7 to 9 are the player's: empty means where the emulator itself puts them.
struct FoundEmulator {
    QString Name;  // "RetroArch (bsnes-mercury Performance)", "Mednafen"
    QString Entry; // its catalogue entry: "RetroArch"
    QString Program;
    QString Core;
    QString Command; // with placeholders: "{program} -L {core} {options} {game}"
    QString DefaultProfile;
    QString Home;
    QString ScreenshotFolder;
    QString StateFolder;
    QString SaveFolder;

    friend bool operator==(const FoundEmulator&, const FoundEmulator&) = default;
};

inline const QString FoundEmulatorsSection = QStringLiteral("Found Emulators");

QString FoundEmulatorValue(const FoundEmulator& emulator);
FoundEmulator ParseFoundEmulator(const QString& name, const QString& value);

// In name order, without regard to case.
QList<FoundEmulator> ReadFoundEmulators(const SettingsStore& store);
// The found emulator of that name, without regard to case.
std::optional<FoundEmulator> FindFoundEmulator(const SettingsStore& store, const QString& name);
// Writes (and syncs) the emulator's value under its name.
void WriteFoundEmulator(SettingsStore& store, const FoundEmulator& emulator);
// False when no found emulator has that name.
bool RemoveFoundEmulator(SettingsStore& store, const QString& name);

// An emulator's name as Lumbra spells it: one of its own three, then the found ones,
// matched without regard to case. Nothing when no emulator has that name.
std::optional<QString> EmulatorName(const SettingsStore& store, const QString& name);

struct StoredDetection {
    QList<FoundEmulator> Found; // as stored now
    QStringList Gone;           // stored before, not found again: removed
};

// Replaces the section with what detection found. An emulator found again under its
// name keeps the player's profile and folders, and, when its program is the same, its
// command too.
StoredDetection StoreDetectedEmulators(SettingsStore& store, const QList<FoundEmulator>& detected);
