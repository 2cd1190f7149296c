#pragma once

// Starts a game of the catalogue in its emulator. The main window calls it on a
// double click or Enter with the game's index.
class Launcher {
public:
    virtual ~Launcher() = default;
    virtual void LaunchEmu(int gameIndex) = 0;
};
