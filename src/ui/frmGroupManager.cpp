#include "ui/frmGroupManager.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "catalogue/GroupViews.h"
#include "ui/MakeButton.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString WindowName = QStringLiteral("frmGroupManager");

} // namespace

frmGroupManager::frmGroupManager(AppState& state, Prompts& prompts, QWidget* parent)
    : QDialog(parent), m_state(state), m_prompts(prompts) {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("Group Manager"));
    setModal(true);

    m_lstGroupList = new QListWidget(this);
    m_lstGroupList->setObjectName(QStringLiteral("lstGroupList"));
    m_lstGroupList->setSelectionMode(QAbstractItemView::SingleSelection);
    m_cmdAdd = MakeButton(QStringLiteral("cmdAdd"), QStringLiteral("Add"), this);
    m_cmdRemove = MakeButton(QStringLiteral("cmdRemove"), QStringLiteral("Remove"), this);
    m_cmdClose = MakeButton(QStringLiteral("cmdClose"), QStringLiteral("Close"), this);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_cmdAdd);
    buttons->addWidget(m_cmdRemove);
    buttons->addStretch();
    buttons->addWidget(m_cmdClose);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_lstGroupList, 1);
    layout->addLayout(buttons);

    connect(m_cmdAdd, &QPushButton::clicked, this, &frmGroupManager::cmdAdd_Click);
    connect(m_cmdRemove, &QPushButton::clicked, this, &frmGroupManager::cmdRemove_Click);
    connect(m_cmdClose, &QPushButton::clicked, this, &frmGroupManager::cmdClose_Click);

    LogWindowLoaded(WindowName);
    FillGroupList();
}

frmGroupManager::~frmGroupManager() {
    LogWindowUnloaded(WindowName);
}

void frmGroupManager::FillGroupList() {
    m_lstGroupList->clear();
    for (const QString& name : m_state.Groups.Entries) {
        if (!name.isEmpty())
            m_lstGroupList->addItem(name);
    }
}

void frmGroupManager::cmdAdd_Click() {
    const QString name =
        m_prompts
            .Input(QStringLiteral("Enter the new group's caption:"), QStringLiteral("Create Group"))
            .value_or(QString());
    if (AddPlayerGroup(m_state.Groups, m_prompts, name))
        FillGroupList();
}

void frmGroupManager::cmdRemove_Click() {
    const QList<QListWidgetItem*> selected = m_lstGroupList->selectedItems();
    if (selected.isEmpty())
        return;
    QListWidgetItem* item = selected.first();
    const QString name = item->text();
    if (!m_state.Groups.RemoveGroup(name))
        return;
    delete item;
    UngroupGames(m_state.Games, name);
}

void frmGroupManager::cmdClose_Click() {
    ExportGroupList(m_state, QStringLiteral("reg"), QString());
    accept();
}
