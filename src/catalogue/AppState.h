#pragma once

#include "base/PictureTypes.h"
#include "catalogue/GameList.h"
#include "catalogue/GroupList.h"
#include "config/Emulators.h"
#include "config/GameFolderList.h"
#include "config/Settings.h"
#include "config/SettingsStore.h"
#include "rom/UnzipState.h"

// Everything the program knows, owned in one place: main() makes one and passes it
// by reference, and a test makes a fresh one in a line.
struct AppState {
    SettingsStore Store;
    Settings Options;
    EmulatorTable Emulators;
    GameFolderList GameFolders;
    GroupList Groups;
    GameList Games;
    PictureTypeTable PictureTypes{};
    UnzipState Unzip;
};
