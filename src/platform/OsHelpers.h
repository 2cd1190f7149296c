#pragma once

#include <QString>

// The temporary folder with a trailing separator.
QString GetTempFolder();

// A path that names the same existing file or folder, has no white space, no double
// quote and no upper-case letter, so that it goes on a command line as it is: the resolved path
// itself when it qualifies, otherwise a symbolic link under the temporary folder. Empty when the
// path does not exist. This is also the program's file-exists test for full paths.
QString GetShortPath(const QString& path);
