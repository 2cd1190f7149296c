#include "ui/frmSettings.h"

#include "base/EventLog.h"
#include "catalogue/AppState.h"
#include "ui/SettingsEmulatorsPage.h"
#include "ui/SettingsGeneralPage.h"
#include "ui/SettingsRomFoldersPage.h"
#include "ui/SettingsSnapshotPage.h"
#include "ui/SettingsSpcPage.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

const QString WindowName = QStringLiteral("frmSettings");
const QString Store = QStringLiteral("reg");

} // namespace

frmSettings::frmSettings(AppState& state, Prompts& prompts, SystemShell& shell, frmMain* mainWindow,
                         QWidget* parent)
    : QDialog(parent), m_context{state, prompts, shell, mainWindow, {}} {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("Settings"));
    setModal(true);

    m_tabSettings = new QTabWidget(this);
    m_tabSettings->setObjectName(QStringLiteral("tabSettings"));
    m_tabSettings->tabBar()->setUsesScrollButtons(false); // every page's tab in sight
    m_emulators = new SettingsEmulatorsPage(m_context);
    m_context.SelectedEmulator = [this] { return m_emulators->SelectedEmulator(); };
    AddPage(m_emulators);
    AddPage(new SettingsGeneralPage(m_context));
    AddPage(new SettingsRomFoldersPage(m_context));
    AddPage(new SettingsSnapshotPage(m_context));
    AddPage(new SettingsSpcPage(m_context));

    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &frmSettings::cmdClose_Click);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabSettings);
    layout->addLayout(buttons);

    Form_Load();
}

frmSettings::~frmSettings() {
    LogWindowUnloaded(WindowName);
}

void frmSettings::AddPage(SettingsPage* page) {
    m_tabSettings->addTab(page, page->objectName());
    m_pages.insert(page->objectName().toLower(), page);
}

// Each page is filled by its name, in page order.
void frmSettings::Form_Load() {
    LogWindowLoaded(WindowName);
    for (int i = 0; i < m_tabSettings->count(); ++i) {
        if (SettingsPage* page = m_pages.value(m_tabSettings->tabText(i).toLower()))
            page->Fill();
    }
}

void frmSettings::ShowPage(const QString& name) {
    if (SettingsPage* page = m_pages.value(name.toLower()))
        m_tabSettings->setCurrentWidget(page);
}

void frmSettings::cmdClose_Click() {
    {
        const SettingsStore::Batch oneWrite(m_context.State.Store);
        ExportGameFolders(m_context.State.Store, m_context.State.GameFolders, Store, QString());
        ExportSettings(m_context.State.Store, m_context.State.Options, m_context.State.Emulators,
                       Store, QString());
    }
    accept();
}

// The window frame and Escape come here: the settings are stored, the folders not.
void frmSettings::reject() {
    ExportSettings(m_context.State.Store, m_context.State.Options, m_context.State.Emulators, Store,
                   QString());
    QDialog::reject();
}
