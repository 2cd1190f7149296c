#pragma once

#include <QApplication>

// The hourglass for the whole screen while it lives. Questions asked meanwhile
// still show the normal pointer (QtPrompts).
class BusyPointer {
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
