#pragma once

#include <QString>

// One game file of the catalogue. An empty Filename marks a free slot; the
// caption "/invisible" marks a game that the player removed.
struct GameRecord {
    QString Caption;
    QString Filename;           // lower case, no folder
    QString ExtractedShortName; // zipped games: short file name of the extracted game
    QString ExtractedFile;      // zipped games: the game file taken out of the archive
    QString Folder;             // lower case, ending in a separator
    QString Reserved;           // kept empty
    QString Group;
    QString Emulator;
    QString Profile;
};

inline const QString RemovedCaption = QStringLiteral("/invisible");
