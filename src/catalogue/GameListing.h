#pragma once

#include <QList>
#include <QString>
#include <vector>

class GameFilter;
class GameList;

// One line of the game list: the game's caption and the index of its record.
struct GameLine {
    int Index = -1;
    QString Caption;

    friend bool operator==(const GameLine&, const GameLine&) = default;
};

// The games that the game list shows for a view: the games of a group (compared
// without regard to case), or every game for "All Games"; removed games are left
// out. The lines come in natural order of their captions (NaturalOrder), and the
// filter picks among them without folding a caption again.
class GameListing {
public:
    void Fill(const GameList& games, const QString& view);

    // The lines that the filter keeps, in order.
    QList<GameLine> Lines(const GameFilter& filter) const;
    int Count() const { return static_cast<int>(m_entries.size()); }

private:
    struct Entry {
        GameLine Line;
        QString FoldedCaption;
        QString FoldedFileName;
        QString SortKey; // NaturalSortKey of FoldedCaption
    };
    std::vector<Entry> m_entries;
};

// The lines of the view that match the typed words, as the main window lists them.
QList<GameLine> ListGames(const GameList& games, const QString& view, const QString& typed);
