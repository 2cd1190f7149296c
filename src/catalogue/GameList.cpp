#include "catalogue/GameList.h"

#include "base/EventLog.h"
#include "base/StringHelpers.h"

#include <QHash>
#include <algorithm>
#include <vector>

void GameList::ClearGameList() {
    Records.fill(GameRecord());
    LogEvent(QStringLiteral("GameList array cleared."));
}

int GameList::FindGame(const QString& searchType, const QString& value) const {
    QString GameRecord::*field = nullptr;
    if (searchType == QLatin1String("filename"))
        field = &GameRecord::Filename;
    else if (searchType == QLatin1String("title"))
        field = &GameRecord::Caption;
    else
        return -1;
    for (int i = 0; i < Capacity; ++i) {
        if ((Records[i].*field).compare(value, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

int GameList::Count() const {
    const int freeSlot = FindGame(QStringLiteral("filename"), QString());
    return freeSlot < 0 ? Capacity : freeSlot;
}

void GameList::TagDuplicates() {
    LogEvent(QStringLiteral("Tagging duplicate entries within GameList..."));
    // The "title" count ends at the first empty caption, not at the first free slot.
    const int firstEmptyCaption = FindGame(QStringLiteral("title"), QString());
    const int last = (firstEmptyCaption < 0 ? Capacity : firstEmptyCaption) - 1;
    if (last == 0) {
        LogEvent(QStringLiteral("List is empty"), true);
        return;
    }
    // Each record is compared with the records after it, by its caption as it stands
    // when reached, tag included. Rather than comparing every pair, the records not
    // reached yet are kept by lower-case caption, in list order.
    QHash<QString, std::vector<int>> holders;
    std::vector<QString> lowerCaptions(static_cast<std::size_t>(last) + 1);
    for (int i = 0; i <= last; ++i) {
        lowerCaptions[static_cast<std::size_t>(i)] = LowerCase(Records[i].Caption);
        holders[lowerCaptions[static_cast<std::size_t>(i)]].push_back(i);
    }
    bool found = false;
    for (int i = 0; i < last; ++i) {
        std::vector<int>& same = holders[lowerCaptions[static_cast<std::size_t>(i)]];
        // Every earlier record has left its list, so record i comes first in its own.
        const std::vector<int> later(same.begin() + 1, same.end());
        same.clear();
        int copy = 2;
        for (const int j : later) {
            Records[j].Caption += QStringLiteral(" (") + QString::number(copy++) + QLatin1Char(')');
            QString& lower = lowerCaptions[static_cast<std::size_t>(j)];
            lower = LowerCase(Records[j].Caption);
            std::vector<int>& tagged = holders[lower];
            tagged.insert(std::lower_bound(tagged.begin(), tagged.end(), j), j);
            found = true;
        }
    }
    LogEvent(QStringLiteral("Duplicates Found? ") +
                 (found ? QStringLiteral("True") : QStringLiteral("False")),
             true);
}
