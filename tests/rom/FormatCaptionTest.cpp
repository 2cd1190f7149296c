#include "rom/FormatCaption.h"

#include <gtest/gtest.h>
#include <utility>

TEST(FormatCaption, CapitalisesWordsAndKeepsAbbreviations) {
    const std::pair<QString, QString> cases[] = {
        {"  super_mario__world\t\x01(u) [!]  ", "Super Mario World (U) [!]"},
        // Only blanks and ([{;.=+/\ start a word; other marks leave the state as it was.
        {"a{b;c.d=e+f/g\\h", "A{B;C.D=E+F/G\\H"},
        {"x-men: \"mutant\", #apocalypse!&co*z", "X-men: \"Mutant\", #Apocalypse!&co*z"},
        {QStringLiteral(u"\u00C9COLE \u00E9t\u00E9"), QStringLiteral(u"\u00C9cole \u00C9t\u00E9")},
        {"nhl nfl nba ff fx dkc bs rbi rpg sfx usa wcw wwf",
         "NHL NFL NBA FF FX DKC BS RBI RPG SFX USA WCW WWF"},
        {"rocky-i ii ff-iii vii ffx nbajam", "Rocky-I II FF-III VII Ffx Nbajam"},
        {"NBA'S DON'T PULL 'EM NHL '94", "NBA's Don't Pull 'em NHL '94"},
        {"3RD WORLD 2ND-ROUND 4x4", "3rd World 2nd-round 4x4"},
        // A word raised to one of those kept in capitals counts, letters beyond ASCII too.
        {QStringLiteral(u"\u0131\u0131 \u0131\u0131\u0131\u0131\u0131"),
         QStringLiteral(u"II I\u0131\u0131\u0131\u0131")},
        {"", ""},
        {QString(21, QChar(0)) + " \t\r\n_\x7F  ", ""}};
    for (const auto& [text, caption] : cases)
        EXPECT_EQ(FormatCaption(text), caption);
}
