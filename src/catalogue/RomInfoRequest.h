#pragma once

#include <QString>

class Prompts;
struct AppState;

// What the game information dialog is opened with.
struct RomInfoRequest {
    QString DisplayFilename; // the catalogue's file name: a zipped game's archive
    QString DisplayPath;
    QString RomFilename; // the file whose header is read: a zipped game's extracted file
    QString RomPath;     // its folder, ending in a separator: the unzip folder for a zipped game
    QString RomCaption;
    QString RomGroup;
    int SelRomIndex = -1;
    bool ExtractData = true; // whether the header is read and shown
    bool Zipped = false;
    QString PlayStatistics; // "Played 3 times, ..." or "Never played"
};

// The request for the game at index. A zipped game first asks whether to extract it:
// yes extracts it into the unzip folder, no leaves its header unread.
RomInfoRequest PrepareRomInfo(AppState& state, Prompts& prompts, int index);

// Once the dialog has closed: a zipped game's extracted files are deleted.
void FinishRomInfo(AppState& state, Prompts& prompts, const RomInfoRequest& request);
