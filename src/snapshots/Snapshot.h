#pragma once

#include <QString>
#include <optional>

// The snapshot picture of a game file: folder + the file name's base + ".bmp",
// ".gif", ".jpg" or ".png", the first that exists. The base keeps its letter case and
// ends before the last "."; a name without a dot is its own base.
// Nothing (no answer) when either text is empty; an empty text when none exists.
std::optional<QString> FindSnapshot(const QString& fileName, const QString& snapshotFolder);
