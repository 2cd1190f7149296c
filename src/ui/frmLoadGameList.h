#pragma once

#include "base/Progress.h"

#include <QWidget>

class QProgressBar;

// The small window that shows the progress of the game list's load.
class frmLoadGameList final : public QWidget, public Progress {
    Q_OBJECT

public:
    explicit frmLoadGameList(QWidget* parent = nullptr);
    ~frmLoadGameList() override;

    void Show() override;
    void Close() override;
    void SetMaximum(int maximum) override;
    void SetValue(int value) override;

private:
    void Repaint();

    QProgressBar* m_loadProgressBar = nullptr;
    bool m_loaded = false;
    int m_shownPercent = -1;
};
