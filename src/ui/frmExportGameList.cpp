#include "ui/frmExportGameList.h"

#include "base/EventLog.h"
#include "base/Progress.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "export/ExportChoices.h"
#include "export/ExportPrefs.h"
#include "export/ExportWriter.h"
#include "platform/ShortPath.h"
#include "platform/SystemShell.h"
#include "ui/BusyPointer.h"
#include "ui/ExportWriteOrderBox.h"
#include "ui/MakeButton.h"
#include "ui/ScreenFit.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString WindowName = QStringLiteral("frmExportGameList");
const QString DialogTitle = QStringLiteral("Export Game List");
constexpr int MaxFilePatterns = 100;

QRadioButton* MakeOption(const QString& name, const QString& caption, QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    return option;
}

QComboBox* MakeList(const QString& name, QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    return list;
}

// The entry at index, or the first one when index is out of the list's range.
void SelectEntry(QComboBox* list, int index) {
    list->setCurrentIndex(index >= 0 && index < list->count() ? index : 0);
}

template <std::size_t N> int CheckedIndex(const std::array<QRadioButton*, N>& options) {
    for (std::size_t i = 0; i < N; ++i) {
        if (options[i]->isChecked())
            return static_cast<int>(i);
    }
    return 0;
}

template <std::size_t N> void Check(const std::array<QRadioButton*, N>& options, int index) {
    options[index >= 0 && index < static_cast<int>(N) ? index : 0]->setChecked(true);
}

// A pattern the player typed joins the list (while it has room) and becomes the
// choice; one that differs from an entry only in letter case picks that entry, as
// the match ignores case.
void KeepTypedPattern(QComboBox* patterns) {
    const QString typed = patterns->currentText();
    if (typed.isEmpty())
        return;
    int index = patterns->findText(typed, Qt::MatchFixedString);
    if (index < 0 && patterns->count() < MaxFilePatterns) {
        patterns->addItem(typed);
        index = patterns->count() - 1;
    }
    if (index >= 0)
        patterns->setCurrentIndex(index);
}

// The writer's stage texts go to the label and its steps to the bar. The windows
// repaint as it goes; the player's input waits until the export is over.
class ExportProgress final : public Progress {
public:
    ExportProgress(QLabel* label, QProgressBar* bar) : m_label(label), m_bar(bar) {}

    void SetLabel(const QString& text) override {
        m_label->setText(text);
        Repaint();
    }
    // A range of at least one step: a bar with none shows "busy" for ever.
    void SetMaximum(int maximum) override { m_bar->setRange(0, std::max(maximum, 1)); }
    void SetValue(int value) override {
        m_bar->setValue(value);
        Repaint();
    }

private:
    static void Repaint() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

    QLabel* m_label;
    QProgressBar* m_bar;
};

} // namespace

frmExportGameList::frmExportGameList(AppState& state, Prompts& prompts, SystemShell& shell,
                                     QWidget* parent)
    : QDialog(parent), m_state(state), m_prompts(prompts), m_shell(shell) {
    setObjectName(WindowName);
    setWindowTitle(DialogTitle);
    setModal(true);
    CreateControls();
    LogWindowLoaded(WindowName);
    Form_Load();
    ResizeToFit(this);
}

frmExportGameList::~frmExportGameList() {
    LogWindowUnloaded(WindowName);
}

void frmExportGameList::CreateControls() {
    auto* method = new QGroupBox(QStringLiteral("Export Method"), this);
    method->setObjectName(QStringLiteral("fraExportMethod"));
    const QStringList methods = {
        QStringLiteral("Entire List"), QStringLiteral("Specific Game Folder:"),
        QStringLiteral("Specific Group:"), QStringLiteral("By File Pattern:")};
    auto* methodLayout = new QGridLayout(method);
    for (int i = 0; i < static_cast<int>(m_optExportMethod.size()); ++i) {
        m_optExportMethod[i] =
            MakeOption(QStringLiteral("optExportMethod_%1").arg(i), methods[i], method);
        methodLayout->addWidget(m_optExportMethod[i], i, 0);
        connect(m_optExportMethod[i], &QRadioButton::toggled, this,
                &frmExportGameList::optExportMethod_Click);
    }
    m_cboGameFolders = MakeList(QStringLiteral("cboGameFolders"), method);
    m_cboGroups = MakeList(QStringLiteral("cboGroups"), method);
    m_cboFilePatterns = MakeList(QStringLiteral("cboFilePatterns"), method);
    m_cboFilePatterns->setEditable(true);
    m_cboFilePatterns->setInsertPolicy(QComboBox::NoInsert); // kept when the dialog closes
    methodLayout->addWidget(m_cboGameFolders, 1, 1);
    methodLayout->addWidget(m_cboGroups, 2, 1);
    methodLayout->addWidget(m_cboFilePatterns, 3, 1);
    methodLayout->setColumnStretch(1, 1);

    m_writeOrder = new ExportWriteOrderBox(this);
    auto* sortBy = new QLabel(QStringLiteral("Sort By:"), this);
    sortBy->setObjectName(QStringLiteral("lblSortBy"));
    m_cboSortMethods = MakeList(QStringLiteral("cboSortMethods"), this);
    sortBy->setBuddy(m_cboSortMethods);
    auto* format = new QGroupBox(QStringLiteral("File Format"), this);
    format->setObjectName(QStringLiteral("fraFileFormat"));
    m_optFileFormat = {
        MakeOption(QStringLiteral("optFileFormat_0"), QStringLiteral("Plain Text (*.txt)"), format),
        MakeOption(QStringLiteral("optFileFormat_1"), QStringLiteral("HTML (*.htm;*.html)"),
                   format)};
    auto* formatLayout = new QVBoxLayout(format);
    for (QRadioButton* option : m_optFileFormat)
        formatLayout->addWidget(option);
    auto* sideLayout = new QVBoxLayout;
    sideLayout->addWidget(sortBy);
    sideLayout->addWidget(m_cboSortMethods);
    sideLayout->addWidget(format);
    sideLayout->addStretch();
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_writeOrder, 1);
    middle->addLayout(sideLayout);

    m_lblProgress = new QLabel(this);
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_prgProgress = new QProgressBar(this);
    m_prgProgress->setObjectName(QStringLiteral("prgProgress"));
    m_cmdExport = MakeButton(QStringLiteral("cmdExport"), QStringLiteral("&Export..."), this);
    m_cmdClose = MakeButton(QStringLiteral("cmdClose"), QStringLiteral("&Close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdExport);
    buttons->addWidget(m_cmdClose);

    // The choices scroll on a small screen; the progress and the buttons stay in view.
    auto* choices = new QVBoxLayout;
    choices->addWidget(method);
    choices->addLayout(middle);
    choices->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ScrollingPage(choices, this), 1);
    layout->addWidget(m_lblProgress);
    layout->addWidget(m_prgProgress);
    layout->addLayout(buttons);

    connect(m_cmdExport, &QPushButton::clicked, this, &frmExportGameList::cmdExport_Click);
    connect(m_cmdClose, &QPushButton::clicked, this, &frmExportGameList::cmdClose_Click);
}

void frmExportGameList::Form_Load() {
    const ExportPrefs prefs = LoadExportPrefs(m_state.Store);
    m_cboGameFolders->addItems(ExportFolderEntries(m_state.GameFolders));
    m_cboGroups->addItems(ExportGroupEntries(m_state.Groups));
    m_cboFilePatterns->addItems(prefs.FilePatterns);
    m_cboSortMethods->addItems(ColumnKeys);
    ApplyPrefs(prefs);
}

void frmExportGameList::ApplyPrefs(const ExportPrefs& prefs) {
    Check(m_optExportMethod, prefs.ExportMethod);
    SelectEntry(m_cboGameFolders, prefs.GameFolderIndex);
    SelectEntry(m_cboGroups, prefs.GroupIndex);
    SelectEntry(m_cboFilePatterns, prefs.FilePatternIndex);
    SelectEntry(m_cboSortMethods, prefs.SortMethod);
    m_writeOrder->SetWriteOrder(prefs.WriteOrder, prefs.WriteOrderChecked);
    Check(m_optFileFormat, prefs.FileFormat);
    optExportMethod_Click();
}

ExportPrefs frmExportGameList::ChosenPrefs() {
    KeepTypedPattern(m_cboFilePatterns);
    ExportPrefs prefs;
    prefs.ExportMethod = CheckedIndex(m_optExportMethod);
    prefs.GameFolderIndex = std::max(m_cboGameFolders->currentIndex(), 0);
    prefs.GroupIndex = std::max(m_cboGroups->currentIndex(), 0);
    prefs.FilePatterns.clear();
    for (int i = 0; i < m_cboFilePatterns->count(); ++i)
        prefs.FilePatterns.append(m_cboFilePatterns->itemText(i));
    prefs.FilePatternIndex = std::max(m_cboFilePatterns->currentIndex(), 0);
    prefs.SortMethod = std::max(m_cboSortMethods->currentIndex(), 0);
    prefs.WriteOrder = m_writeOrder->Keys();
    prefs.WriteOrderChecked = m_writeOrder->Written();
    prefs.FileFormat = CheckedIndex(m_optFileFormat);
    return prefs;
}

ExportChoices frmExportGameList::Choices() const {
    ExportChoices choices;
    choices.Method = static_cast<ExportMethod>(CheckedIndex(m_optExportMethod));
    switch (choices.Method) {
    case ExportMethod::GameFolder:
        choices.Filter = m_cboGameFolders->currentText();
        break;
    case ExportMethod::Group:
        choices.Filter = m_cboGroups->currentText();
        break;
    case ExportMethod::FilePattern:
        choices.Filter = m_cboFilePatterns->currentText();
        break;
    case ExportMethod::EntireList:
        break;
    }
    choices.SortKey = m_cboSortMethods->currentText();
    choices.WriteOrder = m_writeOrder->Columns();
    choices.Format = static_cast<ExportFormat>(CheckedIndex(m_optFileFormat));
    choices.ProductLink = ProductLink();
    return choices;
}

void frmExportGameList::SavePrefs() {
    SaveExportPrefs(m_state.Store, ChosenPrefs());
}

// Each selector is open only while its method is chosen.
void frmExportGameList::optExportMethod_Click() {
    m_cboGameFolders->setEnabled(m_optExportMethod[1]->isChecked());
    m_cboGroups->setEnabled(m_optExportMethod[2]->isChecked());
    m_cboFilePatterns->setEnabled(m_optExportMethod[3]->isChecked());
}

void frmExportGameList::cmdExport_Click() {
    const ExportChoices choices = Choices();
    const QString filter =
        choices.Format == ExportFormat::Html
            ? QStringLiteral("HTML (*.html;*.htm)|*.html;*.htm|All Files (*.*)|*.*")
            : QStringLiteral("Plain Text (*.txt)|*.txt|All Files (*.*)|*.*");
    const std::optional<QString> path =
        m_prompts.SaveFile(DialogTitle, filter,
                           AddBackslash(m_state.Options.ExportFolder) + QStringLiteral("gamelist"));
    if (!path)
        return;
    if (!GetShortPath(*path).isEmpty() &&
        m_prompts.Message(*path + QStringLiteral(" already exists.") + QStringLiteral("\r\n") +
                              QStringLiteral("Do you want to replace it?"),
                          PromptButtons::YesNo, PromptIcon::Exclamation,
                          QStringLiteral("Export")) != PromptAnswer::Yes)
        return;

    bool written = false;
    {
        const BusyPointer busy;
        ExportProgress progress(m_lblProgress, m_prgProgress);
        m_prgProgress->setValue(0);
        written = WriteGameListExport(m_state.Games, choices, *path, progress);
    }
    if (written)
        OfferToOpen(*path);
    else
        m_prompts.Message(QStringLiteral("Unknown Error, Export Failed!"), PromptButtons::Ok,
                          PromptIcon::Critical);
}

void frmExportGameList::OfferToOpen(const QString& path) {
    const PromptAnswer answer =
        m_prompts.Message(QStringLiteral("Game List Exported!\r\n\r\n") +
                              QStringLiteral("Do you want to open it now? ") +
                              QStringLiteral("No opens the folder that holds it."),
                          PromptButtons::YesNoCancel, PromptIcon::Information);
    if (answer == PromptAnswer::Yes)
        m_shell.OpenDocument(path);
    else if (answer == PromptAnswer::No)
        m_shell.OpenDocument(QFileInfo(path).absolutePath());
}

void frmExportGameList::cmdClose_Click() {
    SavePrefs();
    accept();
}

// The window frame and Escape come here: the choices are kept as by "&Close".
void frmExportGameList::reject() {
    SavePrefs();
    QDialog::reject();
}
