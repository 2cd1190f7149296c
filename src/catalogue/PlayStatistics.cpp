#include "catalogue/PlayStatistics.h"

#include "catalogue/GameRecord.h"
#include "config/SettingsStore.h"

#include <algorithm>

namespace {

QString SectionOf(const GameRecord& game) {
    return PlayStatisticsSection + game.Folder;
}

} // namespace

PlayStatistics ReadPlayStatistics(const SettingsStore& store, const GameRecord& game) {
    PlayStatistics statistics;
    const QStringList fields = store.Read(SectionOf(game), game.Filename).split(QLatin1Char(';'));
    statistics.PlayCount = std::max(0, fields.value(0).toInt());
    statistics.LastPlayed = QDateTime::fromString(fields.value(1), Qt::ISODate);
    statistics.PlaySeconds = std::max<qint64>(0, fields.value(2).toLongLong());
    return statistics;
}

void WritePlayStatistics(SettingsStore& store, const GameRecord& game,
                         const PlayStatistics& statistics) {
    const QString lastPlayed = statistics.LastPlayed.isValid()
                                   ? statistics.LastPlayed.toUTC().toString(Qt::ISODate)
                                   : QString();
    store.Write(SectionOf(game), game.Filename,
                QString::number(statistics.PlayCount) + QLatin1Char(';') + lastPlayed +
                    QLatin1Char(';') + QString::number(statistics.PlaySeconds));
    store.Sync();
}

QElapsedTimer StartPlay(SettingsStore& store, const GameRecord& game) {
    PlayStatistics statistics = ReadPlayStatistics(store, game);
    ++statistics.PlayCount;
    statistics.LastPlayed = QDateTime::currentDateTimeUtc();
    WritePlayStatistics(store, game, statistics);
    QElapsedTimer clock;
    clock.start();
    return clock;
}

void EndPlay(SettingsStore& store, const GameRecord& game, const QElapsedTimer& clock) {
    AddPlayTime(store, game, clock.elapsed());
}

void AddPlayTime(SettingsStore& store, const GameRecord& game, qint64 milliseconds) {
    PlayStatistics statistics = ReadPlayStatistics(store, game);
    statistics.PlaySeconds += std::max<qint64>(0, (milliseconds + 500) / 1000);
    WritePlayStatistics(store, game, statistics);
}

QString PlayTimeText(qint64 seconds) {
    if (seconds < 60)
        return QString::number(seconds) + QStringLiteral(" s");
    const qint64 minutes = seconds / 60;
    if (minutes < 60)
        return QString::number(minutes) + QStringLiteral(" min");
    return QString::number(minutes / 60) + QStringLiteral(" h ") + QString::number(minutes % 60) +
           QStringLiteral(" min");
}

QString PlayStatisticsText(const PlayStatistics& statistics) {
    if (statistics.PlayCount == 0)
        return QStringLiteral("Never played");
    QString text = statistics.PlayCount == 1
                       ? QStringLiteral("Played once")
                       : QStringLiteral("Played %1 times").arg(statistics.PlayCount);
    if (statistics.LastPlayed.isValid())
        text += QStringLiteral(", last on ") +
                statistics.LastPlayed.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"));
    if (statistics.PlaySeconds > 0)
        text += QStringLiteral(", for ") + PlayTimeText(statistics.PlaySeconds);
    return text;
}
