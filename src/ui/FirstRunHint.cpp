#include "ui/FirstRunHint.h"

#include <QEvent>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>

FirstRunHint::FirstRunHint(QListWidget* list, QStatusBar* statusBar,
                           std::function<void()> openGameFolders)
    : QObject(list), m_list(list), m_statusBar(statusBar) {
    m_cmdAddGameFolder = new QPushButton(QStringLiteral("Add Game Folder..."), statusBar);
    m_cmdAddGameFolder->setObjectName(QStringLiteral("cmdAddGameFolder"));
    m_cmdAddGameFolder->setToolTip(QStringLiteral("Options > Game Folders..."));
    connect(m_cmdAddGameFolder, &QPushButton::clicked, this, std::move(openGameFolders));
    statusBar->addPermanentWidget(m_cmdAddGameFolder);
    m_cmdAddGameFolder->hide();
    list->viewport()->installEventFilter(this);
}

void FirstRunHint::SetShown(bool shown) {
    m_shown = shown;
    m_cmdAddGameFolder->setVisible(shown);
    if (shown)
        m_statusBar->showMessage(QStringLiteral("No game folder yet"));
    m_list->viewport()->update();
}

bool FirstRunHint::eventFilter(QObject* watched, QEvent* event) {
    // The list is asked last: the viewport also gets events while the list is destroyed.
    if (event->type() != QEvent::Paint || !m_shown || m_list->count() > 0)
        return QObject::eventFilter(watched, event);
    QWidget* viewport = m_list->viewport();
    QPainter painter(viewport);
    painter.setPen(viewport->palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport->rect().adjusted(12, 12, -12, -12),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("No game folder is set up yet.\n\nTo list your SNES games, "
                                    "choose Options > Game Folders... (or \"Add Game Folder...\" "
                                    "below), then \"Add...\" and the folder that holds them."));
    return true;
}
