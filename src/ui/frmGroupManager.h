#pragma once

#include <QDialog>

class Prompts;
class QListWidget;
class QPushButton;
struct AppState;

// The modal dialog that adds and removes the player's custom groups.
class frmGroupManager final : public QDialog {
    Q_OBJECT

public:
    frmGroupManager(AppState& state, Prompts& prompts, QWidget* parent = nullptr);
    ~frmGroupManager() override;

private:
    void FillGroupList();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdClose_Click();

    AppState& m_state;
    Prompts& m_prompts;
    QListWidget* m_lstGroupList = nullptr;
    QPushButton* m_cmdAdd = nullptr;
    QPushButton* m_cmdRemove = nullptr;
    QPushButton* m_cmdClose = nullptr;
};
