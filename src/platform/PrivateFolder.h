#pragma once

#include <QString>

// Makes a folder and the missing folders above it, each readable and writable by the
// user alone (0700). A folder that exists is left as it is. False, with the system's
// reason in failure, when a folder could not be made.
bool MakePrivateFolder(const QString& path, QString* failure = nullptr);
