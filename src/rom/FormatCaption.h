#pragma once

#include <QString>

// Turns a raw title or file name into a display caption (rules in the source file).
QString FormatCaption(const QString& text);
