#include "ui/frmLoadGameList.h"

#include "base/EventLog.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

const QString WindowName = QStringLiteral("frmLoadGameList");

} // namespace

frmLoadGameList::frmLoadGameList(QWidget* parent) : QWidget(parent, Qt::Dialog) {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("Loading Game List..."));
    m_loadProgressBar = new QProgressBar(this);
    m_loadProgressBar->setObjectName(QStringLiteral("LoadProgressBar"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_loadProgressBar);
    resize(320, sizeHint().height());
}

frmLoadGameList::~frmLoadGameList() {
    if (m_loaded)
        LogWindowUnloaded(WindowName);
}

void frmLoadGameList::Show() {
    if (!m_loaded) {
        m_loaded = true;
        // The load continues the line of the step that opened the window.
        LogEvent(QStringLiteral("(Loaded ") + WindowName + QStringLiteral(")..."), true);
    }
    show();
    Repaint();
}

void frmLoadGameList::Close() {
    close();
    if (m_loaded) {
        m_loaded = false;
        LogWindowUnloaded(WindowName);
    }
}

void frmLoadGameList::SetMaximum(int maximum) {
    m_loadProgressBar->setMaximum(maximum);
    m_shownPercent = -1;
    Repaint();
}

void frmLoadGameList::SetValue(int value) {
    m_loadProgressBar->setValue(value);
    // The window is repainted once per percent, not once per game.
    const int maximum = m_loadProgressBar->maximum();
    const int percent = maximum > 0 ? static_cast<int>(100LL * value / maximum) : 100;
    if (percent == m_shownPercent)
        return;
    m_shownPercent = percent;
    Repaint();
}

void frmLoadGameList::Repaint() {
    if (!isVisible())
        return;
    // The bar repaints itself when its shown value changes; this lets the windows
    // repaint too. The player's input waits until the load is over, so no command
    // can start in the middle of it.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
