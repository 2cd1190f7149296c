#pragma once

#include <QString>

// What the game information dialog shows of a game file's internal header.
struct RomInfoText {
    // One line a field, each ending in CR LF, the labels padded so that the values
    // line up: size, type, SRAM, speed, bank size, country, licensee, checksum.
    QString Text;
    // The internal title as a caption; empty when the header gave none.
    QString InternalCaption;
};

// Reads the header of the file at path. A file without a readable header gives
// the labels with empty values.
RomInfoText ReadRomInfoText(const QString& path);
