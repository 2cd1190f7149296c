#include "rom/FormatCaption.h"

#include <gtest/gtest.h>

TEST(FormatCaption, CapitalisesWordsOfTitlesAndFileNames) {
    EXPECT_EQ(FormatCaption("SUPER MARIOWORLD"), "Super Marioworld");
    EXPECT_EQ(FormatCaption("  DONKEY KONG   COUNTRY 2  "), "Donkey Kong Country 2");
    EXPECT_EQ(FormatCaption("super_mario_world (u) [!]"), "Super Mario World (U) [!]");
    EXPECT_EQ(FormatCaption("mario__kart\t\x01(e)"), "Mario Kart (E)");
    EXPECT_EQ(FormatCaption("a{b;c.d=e+f/g\\h"), "A{B;C.D=E+F/G\\H");
    EXPECT_EQ(FormatCaption("x-men: mutant, apocalypse!&co*z"), "X-men: Mutant, Apocalypse!&co*z");
    EXPECT_EQ(FormatCaption("\"quoted\" #title"), "\"Quoted\" #Title");
    EXPECT_EQ(FormatCaption(QStringLiteral(u"\u00C9COLE \u00E9t\u00E9")),
              QStringLiteral(u"\u00C9cole \u00C9t\u00E9"));
}

TEST(FormatCaption, KeepsAbbreviationsNumeralsApostrophesAndNumbers) {
    EXPECT_EQ(FormatCaption("nhl nfl nba ff fx dkc bs rbi rpg sfx usa wcw wwf"),
              "NHL NFL NBA FF FX DKC BS RBI RPG SFX USA WCW WWF");
    EXPECT_EQ(FormatCaption("STREET FIGHTER II TURBO"), "Street Fighter II Turbo");
    EXPECT_EQ(FormatCaption("rocky-i ff-iii (usa)"), "Rocky-I FF-III (USA)");
    EXPECT_EQ(FormatCaption("ffx nbajam fff usagi"), "Ffx Nbajam Fff Usagi");
    EXPECT_EQ(FormatCaption("DON'T PULL 'EM"), "Don't Pull 'em");
    EXPECT_EQ(FormatCaption("NBA'S BEST"), "NBA's Best");
    EXPECT_EQ(FormatCaption("NHL '94"), "NHL '94");
    EXPECT_EQ(FormatCaption("3RD WORLD 2ND-ROUND 4x4"), "3rd World 2nd-round 4x4");
}

TEST(FormatCaption, BlankAndControlTextGivesEmpty) {
    EXPECT_EQ(FormatCaption(""), "");
    EXPECT_EQ(FormatCaption(QString(21, ' ')), "");
    EXPECT_EQ(FormatCaption(QString(21, QChar(0))), "");
    EXPECT_EQ(FormatCaption(" \t\r\n_\x7F "), "");
}
