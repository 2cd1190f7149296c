#pragma once

#include "launch/Launcher.h"

#include <QList>

// Records the games the window asks to start and starts nothing.
class RecordingLauncher final : public Launcher {
public:
    void LaunchEmu(int gameIndex) override { Requests.append(gameIndex); }
    QList<int> Requests;
};
