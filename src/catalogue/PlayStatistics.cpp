#include "catalogue/PlayStatistics.h"

#include "catalogue/GameList.h"
#include "catalogue/GameListing.h"
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

bool PlayOrderFromName(const QString& name, PlayOrder& order) {
    if (name == QLatin1String("last-played"))
        order = PlayOrder::LastPlayed;
    else if (name == QLatin1String("play-count"))
        order = PlayOrder::PlayCount;
    else if (name == QLatin1String("play-time"))
        order = PlayOrder::PlayTime;
    else
        return false;
    return true;
}

void SortByPlay(const SettingsStore& store, const GameList& games, PlayOrder order,
                QList<GameLine>& lines) {
    const auto key = [&](const GameLine& line) -> qint64 {
        const PlayStatistics s = ReadPlayStatistics(store, games.Records[line.Index]);
        switch (order) {
        case PlayOrder::LastPlayed:
            return s.LastPlayed.isValid() ? s.LastPlayed.toMSecsSinceEpoch() : -1;
        case PlayOrder::PlayCount:
            return s.PlayCount;
        case PlayOrder::PlayTime:
            return s.PlaySeconds;
        }
        return 0;
    };
    QList<std::pair<qint64, GameLine>> keyed;
    for (const GameLine& line : lines)
        keyed.append({key(line), line});
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    lines.clear();
    for (const auto& [figure, line] : keyed)
        lines.append(line);
}
