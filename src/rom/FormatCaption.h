#pragma once

#include <QString>

// Turns a raw title (an SNES internal title or a file name) into a display caption:
// "SUPER MARIOWORLD" -> "Super Marioworld", "FINAL FANTASY 3" -> "Final Fantasy 3",
// "super_mario_world (u) [!]" -> "Super Mario World (U) [!]", "NHL '94" -> "NHL '94".
//
// 1. First pass, by character code: control characters (codes 0-31 and 127-159,
//    so the zero bytes of a padded title too), the no-break space (160) and "_"
//    become blanks. "_" is the word gap of many file names, so it becomes a blank.
// 2. Runs of blanks shrink to one, the text is trimmed and lower-cased whole. A text
//    of only blanks, control characters and "_" therefore gives "".
// 3. A word is a run of letters and digits. A word equal (ignoring case) to "NHL",
//    "NFL", "NBA", "FF", "FX", "DKC", "BS", "RBI", "RPG", "SFX", "USA", "WCW", "WWF",
//    the numeral "I" or the numerals "II", "III", "IV", "VI", "VII", "VIII", "IX" is
//    raised whole, wherever it stands ("ff-iii" -> "FF-III").
// 4. Otherwise a word's first letter is raised when the word begins the text or
//    follows, with nothing between, one of the word starters: blank, "(", "[", "{",
//    ";", ".", "=", "+", "/", "\". Other characters ("-", "&", ",", ":", "?", "!",
//    "]", "}", ")", "*", '"', "#", ...) end a word but leave that state as it is, so
//    "x-men" -> "X-men" and '"hi"' -> '"Hi"'. An apostrophe ends it: a letter after
//    one is not raised ("don't" -> "Don't", "'em" -> "'em").
// 5. A word that begins with a digit is not raised, and neither is a letter after a
//    digit in the same word: "3rd" stays "3rd", "2020ad" stays "2020ad".
QString FormatCaption(const QString& text);
