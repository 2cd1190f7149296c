#include "catalogue/PlayOrder.h"

#include "catalogue/GameList.h"
#include "catalogue/GameListing.h"
#include "catalogue/PlayStatistics.h"

#include <algorithm>
#include <utility>

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
