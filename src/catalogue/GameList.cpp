#include "catalogue/GameList.h"

#include "app/EventLog.h"

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
    // Each record is compared with its caption as it stands when reached, tag included.
    std::vector<QString> lowered;
    lowered.reserve(std::max(last + 1, 0));
    for (int i = 0; i <= last; ++i)
        lowered.push_back(Records[i].Caption.toLower());
    bool found = false;
    for (int i = 0; i < last; ++i) {
        const QString caption = lowered[i];
        int copy = 2;
        for (int j = i + 1; j <= last; ++j) {
            if (lowered[j] == caption) {
                Records[j].Caption +=
                    QStringLiteral(" (") + QString::number(copy) + QLatin1Char(')');
                lowered[j] = Records[j].Caption.toLower();
                ++copy;
                found = true;
            }
        }
    }
    LogEvent(QStringLiteral("Duplicates Found? ") +
                 (found ? QStringLiteral("True") : QStringLiteral("False")),
             true);
}
