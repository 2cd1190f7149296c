#pragma once

#include <QString>

// What the player is told when nothing can open a file: "No program is set up to
// open PNG images.", "... to open HTML files.", "... to open folders."
QString NoProgramToOpenMessage(const QString& path);

// Whether the desktop names a program for the file's type (xdg-mime's default
// application). When xdg-mime is not installed the answer is yes: the desktop's
// opener then decides by itself.
bool HasProgramToOpen(const QString& path);
