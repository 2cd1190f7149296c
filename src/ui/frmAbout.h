#pragma once

#include <QDialog>

class Prompts;
class SystemShell;

// The About box: the program's name and version, the libraries it is built on, and
// a button that starts the desktop's system-information program.
class frmAbout final : public QDialog {
    Q_OBJECT
public:
    frmAbout(Prompts& prompts, SystemShell& shell, QWidget* parent = nullptr);
    ~frmAbout() override;

private:
    void cmdSysInfo_Click();

    Prompts& m_prompts;
    SystemShell& m_shell;
};
