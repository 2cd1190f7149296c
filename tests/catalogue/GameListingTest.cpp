#include "catalogue/GameListing.h"
#include "catalogue/FoldedText.h"
#include "catalogue/GameFilter.h"
#include "catalogue/GroupViews.h"
#include "catalogue/NaturalOrder.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

#include <algorithm>
#include <random>
#include <tuple>

namespace {

QStringList NaturallySorted(QStringList texts) {
    std::sort(texts.begin(), texts.end(),
              [](const QString& a, const QString& b) { return NaturalCompare(a, b) < 0; });
    return texts;
}

// "caption@index" of each line.
QStringList Shown(const QList<GameLine>& lines) {
    QStringList shown;
    for (const GameLine& line : lines)
        shown << line.Caption + '@' + QString::number(line.Index);
    return shown;
}

TEST(FoldedTextTest, DropsAccentsAndCaseAndUnfoldsCompatibilityForms) {
    // A separate accent mark, compatibility forms, mathematical bold beyond 16 bits;
    // letters without a decomposition are kept.
    EXPECT_EQ(FoldedText(u"Pokémon ÀÉÎÕÜ Poke\u0301mon ＺＥＬＤＡ ﬁnal ² İstanbul Ωmega "
                         u"\U0001D400\U0001D41B Straße Øre Plain ASCII 7"),
              "pokemon aeiou pokemon zelda final 2 istanbul ωmega ab straße øre plain ascii 7");
}

TEST(NaturalOrderTest, IgnoresCaseAndAccentsAndCountsDigitRunsAsNumbers) {
    EXPECT_EQ(NaturallySorted({"Game 10", "game 2", "Zelda", "Game 1", "Élan", "eagle", "Game",
                               "Game 2b", "Game 2a", "Ｇａｍｅ 3", "10 Pin", "9 Lives"}),
              (QStringList{"9 Lives", "10 Pin", "eagle", "Élan", "Game", "Game 1", "game 2",
                           "Game 2a", "Game 2b", "Ｇａｍｅ 3", "Game 10", "Zelda"}));
    // Numbers longer than any machine integer, and leading zeros.
    EXPECT_LT(NaturalCompare(u"Disc 99999999999999999999", u"Disc 100000000000000000000"), 0);
    EXPECT_LT(NaturalCompare(u"Level 009", u"Level 10"), 0);
    // A number that begins alike in both texts is still read whole.
    EXPECT_LT(NaturalCompare(u"Game 12", u"Game 102"), 0);
    EXPECT_GT(NaturalCompare(u"Game 9 (10)", u"Game 9 (2)"), 0);
    // Texts equal but for case, accents or zeros still have one fixed order, both ways.
    const std::pair<QString, QString> nearlySame[] = {
        {"mario", "Mario"}, {"Game 7", "Game 007"}, {"Éclair", "Eclair"}};
    for (const auto& [a, b] : nearlySame) {
        EXPECT_EQ(NaturalCompareFolded(FoldedText(a), FoldedText(b)), 0);
        const int order = NaturalCompare(a, b);
        EXPECT_NE(order, 0);
        EXPECT_EQ(order > 0, NaturalCompare(b, a) < 0);
    }
    EXPECT_EQ(NaturalCompare(u"Same", u"Same"), 0);
}

TEST(NaturalOrderTest, TheSortKeyOrdersAsTheComparison) {
    // Texts built from pieces that meet the edge cases: runs of zeros, numbers of
    // 8, 9 and 10 digits, digits beside characters below and above them, and a digit
    // that is not 0 to 9, which leaves the key empty.
    const QStringList pieces = {"a", " ", "(",        "~",         "0",          "00",
                                "7", "9", "12345678", "123456789", "0123456789", "\u0663"};
    std::mt19937 random(16);
    QStringList texts;
    for (int i = 0; i < 400; ++i) {
        QString text;
        for (int count = int(random() % 5); count >= 0; --count)
            text += pieces[int(random() % pieces.size())];
        texts.append(text);
    }
    int keyed = 0;
    for (const QString& a : texts) {
        for (const QString& b : texts) {
            const QString keyA = NaturalSortKey(a);
            const QString keyB = NaturalSortKey(b);
            if (keyA.isEmpty() || keyB.isEmpty())
                continue;
            ++keyed;
            const int byKey = keyA.compare(keyB);
            const int byText = NaturalCompareFolded(a, b);
            ASSERT_EQ(byKey < 0, byText < 0) << a.toStdString() << " / " << b.toStdString();
            ASSERT_EQ(byKey == 0, byText == 0) << a.toStdString() << " / " << b.toStdString();
        }
    }
    EXPECT_GT(keyed, 50000); // most pairs
    EXPECT_EQ(NaturalSortKey(u"disc \u0663"), "");
    EXPECT_EQ(NaturalSortKey(u"level 007"), "level 17");
}

TEST(GameFilterTest, EveryWordInTheCaptionOrTheFileName) {
    const auto matches = [](const QString& typed, const QString& caption, const QString& file) {
        return GameFilter(typed).Matches(FoldedText(caption), FoldedText(file));
    };
    EXPECT_TRUE(matches("mario world", "Super Mario World", "smw.smc"));
    EXPECT_TRUE(matches("WORLD  mar", "Super Mario World", "smw.smc")); // any order, part words
    EXPECT_FALSE(matches("mario kart", "Super Mario World", "smw.smc"));
    EXPECT_TRUE(matches("smw", "Super Mario World", "smw.smc"));        // the file name alone
    EXPECT_TRUE(matches("super .smc", "Super Mario World", "smw.smc")); // one word in each
    EXPECT_FALSE(matches("smw mario kart", "Super Mario World", "smw.smc"));
    EXPECT_TRUE(matches("POKÉ\tSTAD", "Pokemon Stadium", "ps.sfc") &&
                matches("pokemon", "Pokémon Stadium", "p.sfc") &&
                matches("espana", "x", "españa.smc"));
    const GameFilter blank(u" \t ");
    EXPECT_TRUE(blank.Matches(u"anything", u"at all"));
    EXPECT_EQ(GameFilter(u"  Ｍario  ﬁre ").Words(), (QStringList{"mario", "fire"}));
}

class GameListingTest : public LumbraTest {
protected:
    GameListingTest() {
        for (const auto& [caption, file, group] :
             {std::tuple<QString, QString, QString>{"Game 10", "g10.smc", "RPG"},
              {"Game 2", "g2.smc", "RPG"},
              {RemovedCaption, "gone.smc", "RPG"},
              {"zelda", "Zelda.sfc", "rpg"}, // other case
              {"Ápple Hunt", "apple.smc", FixedGroup},
              {"Mario", "mario.smc", "Action"}})
            AddGame(caption, file, "/roms/", group);
    }
};

TEST_F(GameListingTest, AGroupOrAllGamesSortedWithEachLineOnItsRecord) {
    const GameList& games = m_state.Games;
    GameListing listing;
    listing.Fill(games, "rpg");
    EXPECT_EQ(Shown(listing.Lines({})), (QStringList{"Game 2@1", "Game 10@0", "zelda@3"}));
    EXPECT_EQ(Shown(listing.Lines(GameFilter(u"game 1"))), QStringList{"Game 10@0"});
    EXPECT_EQ(Shown(listing.Lines(GameFilter(u"nothing"))), QStringList());

    // "All Games": every game but the removed one, whatever its group.
    listing.Fill(games, AllGamesView);
    EXPECT_EQ(Shown(listing.Lines({})),
              (QStringList{"Ápple Hunt@4", "Game 2@1", "Game 10@0", "Mario@5", "zelda@3"}));
    EXPECT_EQ(listing.Count(), 5);
    EXPECT_EQ(Shown(ListGames(games, "all games", "APPLE")), QStringList{"Ápple Hunt@4"});
    EXPECT_EQ(Shown(ListGames(games, "Ungrouped", "")), QStringList{"Ápple Hunt@4"});
    EXPECT_EQ(Shown(ListGames(games, "Puzzle", "")), QStringList());

    // The list ends at the first free slot.
    m_state.Games.Records[1].Filename.clear();
    EXPECT_EQ(Shown(ListGames(games, AllGamesView, "")), QStringList{"Game 10@0"});
}

TEST_F(GameListingTest, AllGamesIsAViewThatNoGroupMayBecome) {
    GroupList& groups = m_state.Groups;
    groups.Entries[0] = "RPG";
    groups.Entries[1] = "all games"; // stored by hand: the view hides it
    groups.Entries[2] = "Action";
    EXPECT_EQ(SelectorLines(groups), (QStringList{"All Games", "Ungrouped", "RPG", "Action"}));
    EXPECT_TRUE(ViewExists(groups, "ALL GAMES") && ViewExists(groups, "ungrouped") &&
                ViewExists(groups, "action"));
    EXPECT_FALSE(ViewExists(groups, "Puzzle") || GroupExists(groups, "Puzzle"));
    EXPECT_TRUE(IsAllGamesView(" all GAMES "));
    EXPECT_FALSE(IsAllGamesView("All Gamez") || IsAllGamesView("AllGames"));

    // The refusal's words and log line are checked with the group manager.
    groups.Entries[1].clear();
    groups.Entries[1].swap(groups.Entries[2]);
    ScriptedPrompts prompts;
    EXPECT_FALSE(AddPlayerGroup(groups, prompts, " All GAMES "));
    EXPECT_TRUE(AddPlayerGroup(groups, prompts, "All Games 2"));
    EXPECT_EQ(groups.Count(), 3);
    ASSERT_EQ(prompts.Asked().size(), 1);
    EXPECT_EQ(prompts.Asked().first().icon, PromptIcon::Exclamation);
}

} // namespace
