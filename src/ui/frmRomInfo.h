#pragma once

#include "catalogue/RomInfoRequest.h"

#include <QDialog>
#include <optional>

class GameList;
class Prompts;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The game information dialog: the game's file, folder and group, its internal
// header as text, and its caption to edit or to take from the internal title.
class frmRomInfo final : public QDialog {
    Q_OBJECT
public:
    frmRomInfo(GameList& games, Prompts& prompts, const RomInfoRequest& request,
               QWidget* parent = nullptr);
    ~frmRomInfo() override;

    // The caption that OK stored, when it changed.
    const std::optional<QString>& NewCaption() const { return m_newCaption; }

private:
    void CreateControls();
    void Form_Load();
    void LayOut(bool withInformation);
    void ShowElided(QLabel* label, const QString& caption, const QString& name);
    void cmdInternalCaption_Click();
    void cmdOK_Click();
    int Twips(int twips) const;

    GameList& m_games;
    Prompts& m_prompts;
    RomInfoRequest m_request;
    QString m_internalCaption;
    std::optional<QString> m_newCaption;

    QPlainTextEdit* m_txtRomInfo = nullptr;
    QGroupBox* m_fraGeneral = nullptr;
    QLabel* m_lblFilename = nullptr;
    QLabel* m_lblFolder = nullptr;
    QLabel* m_lblGroup = nullptr;
    QLabel* m_lblPlayStatistics = nullptr;
    QLineEdit* m_txtCaption = nullptr;
    QPushButton* m_cmdInternalCaption = nullptr;
    QPushButton* m_cmdOK = nullptr;
    QPushButton* m_cmdCancel = nullptr;
};
