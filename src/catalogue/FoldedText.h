#pragma once

#include <QString>
#include <QStringView>

// The text as the game filter and the natural order compare it: compatibility
// forms decomposed (so "ﬁ" is "fi" and a full-width "Ａ" is "a"), accents and other
// combining marks dropped, letter case folded. Letters without a decomposition
// ("ø", "ß") stay as they are.
QString FoldedText(QStringView text);
