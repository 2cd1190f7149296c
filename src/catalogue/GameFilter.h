#pragma once

#include <QStringList>
#include <QStringView>

// What the player typed to find a game: words separated by blanks. A game matches
// when each word is part of its caption or of its file name, letter case and
// accents aside ("zelda" finds "The Legend of Zelda", "pokemon" finds "Pokémon").
// No words match every game.
class GameFilter {
public:
    GameFilter() = default;
    explicit GameFilter(QStringView typed);

    // The words, folded as FoldedText folds.
    const QStringList& Words() const { return m_words; }

    // Both texts must be folded already (FoldedText): folding a whole catalogue at
    // every keystroke would cost more than the search.
    bool Matches(QStringView foldedCaption, QStringView foldedFileName) const;

private:
    QStringList m_words;
};
