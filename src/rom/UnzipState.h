#pragma once

#include <QString>
#include <QStringList>
#include <array>

// What the last extraction reported: the extracted files' names in order (at most
// 100) and the archive library's messages.
struct UnzipState {
    static constexpr int Capacity = 100;
    std::array<QString, Capacity> UnzippedFiles;
    QString UnzipMessage;
    // The files of a zipped game started without waiting: the emulator still reads
    // them, so they stay until the next launch or the close.
    QStringList KeptForPlay;
};
