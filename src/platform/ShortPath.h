#pragma once

#include <QString>

// A path that names the same existing file or folder, has no white space, no double
// quote and no upper-case letter, so that it goes on a command line as it is: the resolved path
// itself when it qualifies, otherwise a symbolic link in a private folder of the user's. Empty
// when the path does not exist, or when no link could be made safely
// (ShortPathFailure() then says why). This is also the program's file-exists test for full paths.
QString GetShortPath(const QString& path);

// Why the last GetShortPath could not make its link, or an empty text.
QString ShortPathFailure();

// Removes the links that GetShortPath made in this process, and their folders once
// empty. A launch calls it when the emulator no longer needs them.
void RemoveShortPathLinks();
