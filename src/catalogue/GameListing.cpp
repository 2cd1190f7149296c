#include "catalogue/GameListing.h"

#include "catalogue/FoldedText.h"
#include "catalogue/GameFilter.h"
#include "catalogue/GameList.h"
#include "catalogue/GroupViews.h"
#include "catalogue/NaturalOrder.h"

#include <algorithm>

void GameListing::Fill(const GameList& games, const QString& view) {
    m_entries.clear();
    m_entries.reserve(static_cast<std::size_t>(games.Count()));
    const bool everyGame = IsAllGamesView(view);
    for (int index = 0; index < GameList::Capacity; ++index) {
        const GameRecord& record = games.Records[index];
        if (record.Filename.isEmpty())
            break;
        if (record.Caption == RemovedCaption ||
            (!everyGame && record.Group.compare(view, Qt::CaseInsensitive) != 0))
            continue;
        QString folded = FoldedText(record.Caption);
        QString key = NaturalSortKey(folded);
        m_entries.push_back({{index, record.Caption},
                             std::move(folded),
                             FoldedText(record.Filename),
                             std::move(key)});
    }
    std::sort(m_entries.begin(), m_entries.end(), [](const Entry& a, const Entry& b) {
        const int order = a.SortKey.isEmpty() || b.SortKey.isEmpty()
                              ? NaturalCompareFolded(a.FoldedCaption, b.FoldedCaption)
                              : a.SortKey.compare(b.SortKey, Qt::CaseSensitive);
        if (order != 0)
            return order < 0;
        if (const int order = a.Line.Caption.compare(b.Line.Caption, Qt::CaseSensitive))
            return order < 0;
        return a.Line.Index < b.Line.Index;
    });
}

QList<GameLine> GameListing::Lines(const GameFilter& filter) const {
    QList<GameLine> lines;
    lines.reserve(static_cast<qsizetype>(m_entries.size()));
    for (const Entry& entry : m_entries) {
        if (filter.Matches(entry.FoldedCaption, entry.FoldedFileName))
            lines.append(entry.Line);
    }
    return lines;
}

QList<GameLine> ListGames(const GameList& games, const QString& view, const QString& typed) {
    GameListing listing;
    listing.Fill(games, view);
    return listing.Lines(GameFilter(typed));
}
