#pragma once

#include <QString>

class Prompts;
struct UnzipState;

// With an archive's path: extracts it flat into the unzip folder and returns the
// file name (no folder) of the first extracted SNES image, or an empty text when
// there is none (then nothing of the archive is left behind). With the word
// "flush" (any letter case): deletes from the unzip folder every file that the last
// extraction made, and returns an empty text.
// Keeps the last extraction's files for a game started without waiting: the emulator
// still reads them after the launch returns.
void KeepExtractedFiles(UnzipState& unzipState);
// Deletes the files kept for a game started without waiting (UnzipState::KeptForPlay).
void FlushKeptFiles(UnzipState& unzipState, const QString& unzipFolder);

QString DecompressGame(UnzipState& unzipState, const QString& unzipFolder, Prompts& prompts,
                       const QString& argument);

// The first of the extracted files, in extraction order, whose extension is a game
// image's ("1", "058", "078", "fig", "sfc", "smc", "swc", any letter case); empty when
// there is none.
QString FirstGameImage(const UnzipState& unzipped);
