// The game filter's benchmark: 1,000 games in memory, and a player typing words to
// find some, keystroke by keystroke.
//
//   lumbra-bench-filter   prints the mean and the slowest keystroke beside the floor
//
// The floor is the least any filter does: a plain substring search over captions
// folded beforehand (no words, no file names). Lumbra splits and folds what is
// typed, and looks for each word in the folded caption and file name. A second
// line times a group change (folding and sorting the group's games) beside a copy
// of the captions sorted by QString::compare.
#include "Keystrokes.h"
#include "catalogue/FoldedText.h"
#include "catalogue/GameFilter.h"
#include "catalogue/GameList.h"
#include "catalogue/GameListing.h"
#include "catalogue/GroupList.h"
#include "catalogue/GroupViews.h"

#include <QCoreApplication>

namespace {

const char* const Titles[] = {"Super Mario World",
                              "Super Mario Kart",
                              "The Legend of Zélda",
                              "Pokémon Stadium",
                              "Final Fantasy",
                              "Chrono Trigger",
                              "Donkey Kong Country",
                              "Street Fighter",
                              "Mega Man",
                              "Super Metroid",
                              "Castlevania",
                              "Star Fox",
                              "F-Zero",
                              "EarthBound",
                              "Secret of Mana",
                              "Kirby's Dream Land",
                              "Yoshi's Island",
                              "Contra",
                              "Gradius",
                              "Tetris Attack"};
constexpr int TitleCount = sizeof(Titles) / sizeof(Titles[0]);

void FillCatalogue(GameList& games) {
    for (int i = 0; i < GameList::Capacity; ++i) {
        const QString title = QString::fromUtf8(Titles[i % TitleCount]);
        const QString number = QString::number(i / TitleCount + 1);
        games.Records[i] = {title + QLatin1Char(' ') + number,
                            title.toLower().remove(QLatin1Char(' ')) + number +
                                QStringLiteral(".smc"),
                            {},
                            {},
                            QStringLiteral("/games/"),
                            {},
                            FixedGroup,
                            QStringLiteral("Default"),
                            QStringLiteral("Default")};
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    GameList games;
    FillCatalogue(games);

    GameListing listing;
    listing.Fill(games, AllGamesView);
    QStringList folded;
    for (const GameRecord& record : games.Records)
        folded.append(FoldedText(record.Caption));

    QList<GameLine> shown;
    QList<int> floorShown;
    const QStringList typed = Keystrokes::Typed(
        {QStringLiteral("super mario"), QStringLiteral("pokémon 3"), QStringLiteral("zelda 12")});
    const auto [lumbra, floor] = Keystrokes::TakeTurns(
        typed, [&](const QString& text) { shown = listing.Lines(GameFilter(text)); },
        [&](const QString& text) {
            const QString needle = text.toLower();
            floorShown.clear();
            for (qsizetype i = 0; i < folded.size(); ++i) {
                if (folded.at(i).contains(needle))
                    floorShown.append(static_cast<int>(i));
            }
        });

    // A group change: the view's games folded and sorted, against a plain sort.
    const QStringList groupChange{QStringLiteral("All Games")};
    const auto [fill, sortFloor] = Keystrokes::TakeTurns(
        groupChange, [&](const QString& view) { listing.Fill(games, view); },
        [&](const QString&) {
            QStringList captions;
            for (const GameRecord& record : games.Records)
                captions.append(record.Caption);
            std::sort(captions.begin(), captions.end());
        });

    std::printf("The game filter, in process: 1,000 games, %lld keystrokes a run "
                "(\"super mario\", \"pokémon 3\", \"zelda 12\"), medians of %d runs.\n",
                static_cast<long long>(typed.size()), Keystrokes::Runs());
    Keystrokes::Report("filter key", lumbra, floor, 5);
    Keystrokes::Report("group change", fill, sortFloor);
    return shown.isEmpty() ? 1 : 0; // the last words find "The Legend of Zélda 12"
}
