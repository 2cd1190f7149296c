#pragma once

#include <QList>

// Starts a game of the catalogue in its emulator. The main window calls it on a
// double click or Enter with the game's index.
class Launcher {
public:
    virtual ~Launcher() = default;
    virtual void LaunchEmu(int gameIndex) = 0;
};

// Records the games it is asked to start and starts nothing: the stand-in until
// emulators can be started.
class PendingLauncher final : public Launcher {
public:
    void LaunchEmu(int gameIndex) override { Requests.append(gameIndex); }
    QList<int> Requests;
};
