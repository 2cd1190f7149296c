#pragma once

#include <QObject>
#include <functional>

class QListWidget;
class QPushButton;
class QStatusBar;

// While no game folder is set up, the main window's empty game list says how to add
// one, and a status-bar button opens the settings on the "ROM Folders" page.
class FirstRunHint final : public QObject {
    Q_OBJECT
public:
    FirstRunHint(QListWidget* list, QStatusBar* statusBar, std::function<void()> openGameFolders);

    void SetShown(bool shown);
    bool IsShown() const { return m_shown; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QListWidget* m_list;
    QStatusBar* m_statusBar;
    QPushButton* m_cmdAddGameFolder;
    bool m_shown = false;
};
