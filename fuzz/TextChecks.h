#pragma once

#include <QString>

// Invariants of FormatCaption on any text.
void CheckCaption(const QString& text);

// Invariants of the string helpers, with other as the search text, delimiter or
// extension.
void CheckStringHelpers(const QString& text, const QString& other);
