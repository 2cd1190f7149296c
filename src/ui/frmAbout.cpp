#include "ui/frmAbout.h"

#include "base/AboutText.h"
#include "base/AppTitle.h"
#include "base/EventLog.h"
#include "platform/SystemInfo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString WindowName = QStringLiteral("frmAbout");

QLabel* AddLabel(QVBoxLayout* layout, const QString& name, const QString& text) {
    auto* label = new QLabel(text, layout->parentWidget());
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(label);
    return label;
}

} // namespace

frmAbout::frmAbout(Prompts& prompts, SystemShell& shell, QWidget* parent)
    : QDialog(parent), m_prompts(prompts), m_shell(shell) {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("About ") + AppTitle);
    LogWindowLoaded(WindowName);

    auto* layout = new QVBoxLayout(this);
    QLabel* title = AddLabel(layout, QStringLiteral("lblTitle"), AppTitle);
    QFont big = title->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    title->setFont(big);
    AddLabel(layout, QStringLiteral("lblVersion"), QStringLiteral("Version ") + ProgramVersion());
    AddLabel(layout, QStringLiteral("lblDescription"),
             QStringLiteral("A game manager and launcher for SNES game images."));
    layout->addSpacing(8);
    AddLabel(layout, QStringLiteral("lblCredits"), QStringLiteral("Built with:\n") + Credits());
    layout->addSpacing(8);

    auto* sysInfo = new QPushButton(QStringLiteral("&System Info..."), this);
    sysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    sysInfo->setAutoDefault(false);
    connect(sysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(sysInfo);
    buttons->addStretch();
    buttons->addWidget(ok);
    layout->addLayout(buttons);
}

frmAbout::~frmAbout() {
    LogWindowUnloaded(WindowName);
}

void frmAbout::cmdSysInfo_Click() {
    ShowSystemInfo(m_shell, m_prompts);
}
