#pragma once

#include <QApplication>

// A pointer shape for the whole screen while it lives.
class OverridePointer {
public:
    explicit OverridePointer(Qt::CursorShape shape) { QApplication::setOverrideCursor(shape); }
    ~OverridePointer() { QApplication::restoreOverrideCursor(); }
    OverridePointer(const OverridePointer&) = delete;
    OverridePointer& operator=(const OverridePointer&) = delete;
};

// The hourglass while it lives. Questions asked meanwhile still show the normal
// pointer (QtPrompts).
class BusyPointer : public OverridePointer {
public:
    BusyPointer() : OverridePointer(Qt::WaitCursor) {}
};
