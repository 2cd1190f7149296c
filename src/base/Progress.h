#pragma once

#include <QString>

// Progress of a long job. The base class does nothing, so it also serves where
// no progress is shown; the progress window overrides it.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void Show() {}
    virtual void Close() {}
    // What the job is doing now ("Sorting List...").
    virtual void SetLabel(const QString& /*text*/) {}
    virtual void SetMaximum(int /*maximum*/) {}
    virtual void SetValue(int /*value*/) {}
};
