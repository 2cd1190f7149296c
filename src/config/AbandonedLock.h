#pragma once

#include <QString>

// Removes a lock file that no live process holds any more: one whose owner died
// in the middle of a save, empty or not. A lock that a running process holds is
// left alone, so its owner's save goes on undisturbed.
void RemoveAbandonedLock(const QString& lockPath);
