#include "ui/frmRomInfo.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/GameCommands.h"
#include "rom/RomInfoText.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {

const QString WindowName = QStringLiteral("frmRomInfo");

// Places in twips: the information text at the left, the general panel beside it.
// Without the information the panel moves left by its offset and the dialog narrows.
constexpr int Margin = 120;
constexpr int PanelLeft = 3600;
constexpr int PanelWidth = 3480;
constexpr int HiddenOffset = 3480;
constexpr int NarrowWidth = 3720;

template <typename Widget> Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

} // namespace

frmRomInfo::frmRomInfo(GameList& games, Prompts& prompts, const RomInfoRequest& request,
                       QWidget* parent)
    : QDialog(parent), m_games(games), m_prompts(prompts), m_request(request) {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("Game Information"));
    setModal(true);
    CreateControls();
    Form_Load();
}

frmRomInfo::~frmRomInfo() {
    LogWindowUnloaded(WindowName);
}

void frmRomInfo::CreateControls() {
    m_txtRomInfo = Named(new QPlainTextEdit(this), "txtRomInfo");
    m_txtRomInfo->setReadOnly(true);
    m_txtRomInfo->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_txtRomInfo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    m_fraGeneral = Named(new QGroupBox(QStringLiteral("General"), this), "fraGeneral");
    m_lblFilename = Named(new QLabel(m_fraGeneral), "lblFilename");
    m_lblFolder = Named(new QLabel(m_fraGeneral), "lblFolder");
    m_lblGroup = Named(new QLabel(m_fraGeneral), "lblGroup");
    m_lblPlayStatistics = Named(new QLabel(m_fraGeneral), "lblPlayStatistics");
    m_lblPlayStatistics->setWordWrap(true);
    auto* lblCaption = new QLabel(QStringLiteral("&Caption:"), m_fraGeneral);
    m_txtCaption = Named(new QLineEdit(m_fraGeneral), "txtCaption");
    lblCaption->setBuddy(m_txtCaption);
    // ";" joins the fields of a stored game; typed or pasted, it is refused.
    m_txtCaption->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^;]*")), m_txtCaption));
    connect(m_txtCaption, &QLineEdit::inputRejected, this, [] { QApplication::beep(); });
    connect(m_txtCaption, &QLineEdit::editingFinished, this,
            [this] { m_txtCaption->setText(TrimBlanks(m_txtCaption->text())); });
    m_cmdInternalCaption =
        Named(new QPushButton(QStringLiteral("Use &Internal Caption"), m_fraGeneral),
              "cmdInternalCaption");
    auto* panel = new QVBoxLayout(m_fraGeneral);
    for (QWidget* control : std::initializer_list<QWidget*>{m_lblFilename, m_lblFolder, m_lblGroup,
                                                            m_lblPlayStatistics, lblCaption,
                                                            m_txtCaption, m_cmdInternalCaption})
        panel->addWidget(control);

    m_cmdOK = Named(new QPushButton(QStringLiteral("OK"), this), "cmdOK");
    m_cmdOK->setDefault(true);
    m_cmdCancel = Named(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel");
    connect(m_cmdInternalCaption, &QPushButton::clicked, this,
            &frmRomInfo::cmdInternalCaption_Click);
    connect(m_cmdOK, &QPushButton::clicked, this, &frmRomInfo::cmdOK_Click);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmRomInfo::Form_Load() {
    LogWindowLoaded(WindowName);
    m_lblGroup->setText(QStringLiteral("Group: ") + m_request.RomGroup);
    m_lblPlayStatistics->setText(m_request.PlayStatistics);
    m_txtCaption->setText(m_request.RomCaption);
    if (m_request.ExtractData) {
        LogEvent(QStringLiteral("Retrieving internal data..."));
        const RomInfoText info = ReadRomInfoText(m_request.RomPath + m_request.RomFilename);
        m_txtRomInfo->setPlainText(info.Text);
        m_internalCaption = info.InternalCaption;
        LogEvent(QStringLiteral("Done."), true);
    }
    LayOut(m_request.ExtractData);
    if (!m_request.ExtractData)
        LogEvent(QStringLiteral("Adjusted form size to hide internal data (not read)."));
    m_cmdInternalCaption->setEnabled(m_request.ExtractData);
}

void frmRomInfo::LayOut(bool withInformation) {
    const int margin = Twips(Margin);
    m_fraGeneral->setFixedWidth(Twips(PanelWidth));
    ShowElided(m_lblFilename, QStringLiteral("Filename: "), m_request.DisplayFilename);
    ShowElided(m_lblFolder, QStringLiteral("Folder: "), m_request.DisplayPath);
    const int panelHeight = m_fraGeneral->sizeHint().height();
    int panelLeft = Twips(PanelLeft);
    m_txtRomInfo->setGeometry(margin, margin, panelLeft - 2 * margin, panelHeight);
    m_txtRomInfo->setVisible(withInformation);
    if (!withInformation)
        panelLeft -= Twips(HiddenOffset);
    m_fraGeneral->move(panelLeft, margin);

    const int buttonTop = margin + panelHeight + margin;
    const QSize button = m_cmdCancel->sizeHint().expandedTo(m_cmdOK->sizeHint());
    const int panelRight = panelLeft + Twips(PanelWidth);
    m_cmdCancel->setGeometry(panelRight - button.width(), buttonTop, button.width(),
                             button.height());
    m_cmdOK->setGeometry(m_cmdCancel->x() - margin - button.width(), buttonTop, button.width(),
                         button.height());
    const int width = withInformation ? panelRight + margin : Twips(NarrowWidth);
    setFixedSize(width, buttonTop + button.height() + margin);
}

// A long name loses its middle, so that its start and its extension stay in view;
// the tooltip shows it whole.
void frmRomInfo::ShowElided(QLabel* label, const QString& caption, const QString& name) {
    const QMargins margins = m_fraGeneral->layout()->contentsMargins();
    const int room = m_fraGeneral->contentsRect().width() - margins.left() - margins.right();
    const QFontMetrics metrics(label->font());
    label->setText(caption + metrics.elidedText(name, Qt::ElideMiddle,
                                                room - metrics.horizontalAdvance(caption)));
    label->setToolTip(name);
}

void frmRomInfo::cmdInternalCaption_Click() {
    if (m_internalCaption.isEmpty())
        m_prompts.Message(QStringLiteral("The internal caption of this game is invalid!"));
    else
        m_txtCaption->setText(m_internalCaption);
}

void frmRomInfo::cmdOK_Click() {
    const QString caption = TrimBlanks(m_txtCaption->text());
    switch (ChangeCaption(m_games, m_prompts, m_request.SelRomIndex, caption)) {
    case CaptionCheck::Refused:
        return;
    case CaptionCheck::Changed:
        m_newCaption = caption;
        break;
    case CaptionCheck::Unchanged:
        break;
    }
    accept();
}

int frmRomInfo::Twips(int twips) const {
    return qRound(static_cast<double>(twips) * logicalDpiX() / 1440.0);
}
