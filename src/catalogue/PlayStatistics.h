#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QString>

class SettingsStore;
struct GameRecord;

// How much a game has been played. Each game's figures are one value of the store
// section "Play Statistics\" + its folder, under its file name: the play count, the
// last start (UTC, ISO 8601) and the seconds played, joined by ";".
struct PlayStatistics {
    int PlayCount = 0;
    QDateTime LastPlayed; // invalid: never played
    qint64 PlaySeconds = 0;
};

inline const QString PlayStatisticsSection = QStringLiteral("Play Statistics\\");

PlayStatistics ReadPlayStatistics(const SettingsStore& store, const GameRecord& game);
void WritePlayStatistics(SettingsStore& store, const GameRecord& game,
                         const PlayStatistics& statistics);

// The start of a play: counts it and stamps its time. The clock it returns measures
// the play for EndPlay, which a launch that waits for the emulator calls.
QElapsedTimer StartPlay(SettingsStore& store, const GameRecord& game);
void EndPlay(SettingsStore& store, const GameRecord& game, const QElapsedTimer& clock);
// Adds a measured play time (milliseconds, rounded to whole seconds).
void AddPlayTime(SettingsStore& store, const GameRecord& game, qint64 milliseconds);

// "Played 3 times, last on 2026-11-22 21:05, for 1 h 25 min", or "Never played".
QString PlayStatisticsText(const PlayStatistics& statistics);
// "1 h 25 min", "12 min", "40 s".
QString PlayTimeText(qint64 seconds);
