#pragma once

#include <QString>

class Prompts;
struct UnzipState;

// With an archive's path: extracts it flat into the unzip folder and returns the
// file name (no folder) of the first extracted SNES image, or an empty text when
// there is none (then nothing of the archive is left behind). With the word
// "flush" (any letter case): deletes from the unzip folder every file that the last
// extraction made, and returns an empty text.
// Deletes the files kept for a game started without waiting (UnzipState::KeptForPlay).
void FlushKeptFiles(UnzipState& unzipState, const QString& unzipFolder);

QString DecompressGame(UnzipState& unzipState, const QString& unzipFolder, Prompts& prompts,
                       const QString& argument);
