#pragma once

#include "rom/UnzipState.h"

#include <QString>
#include <QTemporaryDir>

class Prompts;

// A zipped game extracted for reading only, picked as a launch picks it (extracted
// flat, the first game image wins), into a private temporary folder of its own that
// goes with the object. The unzip folder, whose game may be playing, is never touched.
class ZippedGame {
public:
    ZippedGame(const QString& archive, Prompts& prompts);

    // A game file is an archive when its name ends in "zip", in any letter case.
    static bool IsArchive(const QString& fileName);

    // The extraction's UnzipCode and its message text.
    int Result() const { return m_result; }
    QString Message() const { return m_unzipped.UnzipMessage; }
    // The game's file name (no folder), and its path; empty when the archive holds no
    // SNES game.
    QString GameName() const { return m_game; }
    QString GamePath() const;

private:
    QTemporaryDir m_folder;
    UnzipState m_unzipped;
    int m_result;
    QString m_game;
};
