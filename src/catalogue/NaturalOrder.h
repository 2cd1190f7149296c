#pragma once

#include <QString>
#include <QStringView>

// The order in which the game list shows captions: letter case and accents do not
// count (FoldedText), and a run of digits counts as its number, so "Game 2" comes
// before "Game 10". It is the same on every machine: no locale is asked.
// Negative, zero or positive, as a < b, a == b, a > b; zero only for equal texts.
int NaturalCompare(QStringView a, QStringView b);

// The same order over texts already folded; equal folded texts give zero.
int NaturalCompareFolded(QStringView a, QStringView b);

// A key for texts already folded, whose plain comparison (code unit by code unit)
// gives the order of NaturalCompareFolded: each run of digits is written as its
// length and its digits without leading zeros. Empty when the text holds digits
// other than 0 to 9, which only NaturalCompareFolded orders.
QString NaturalSortKey(QStringView folded);
