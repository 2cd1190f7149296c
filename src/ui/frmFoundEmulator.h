#pragma once

#include "emulators/FoundEmulators.h"

#include <QDialog>

class Prompts;
class QFormLayout;
class QLineEdit;
class SettingsStore;
class SystemShell;

// Edits what Lumbra keeps of a found emulator: its program, its command, its default
// profile and the folders where it writes screenshots, save states and battery saves
// (empty: where the emulator itself puts them). OK writes them to the store.
class frmFoundEmulator final : public QDialog {
    Q_OBJECT
public:
    frmFoundEmulator(SettingsStore& store, Prompts& prompts, SystemShell& shell,
                     const FoundEmulator& emulator, QWidget* parent = nullptr);
    ~frmFoundEmulator() override;

    // Opens the editor on the found emulator of that name; true when it was saved.
    static bool Edit(SettingsStore& store, Prompts& prompts, SystemShell& shell,
                     const QString& name, QWidget* parent);

private:
    QLineEdit* AddField(const QString& name, const QString& text, const QString& toolTip);
    QLineEdit* AddFolderField(const QString& name, const QString& caption, const QString& text);
    void cmdOK_Click();

    SettingsStore& m_store;
    Prompts& m_prompts;
    SystemShell& m_shell;
    FoundEmulator m_emulator;
    QFormLayout* m_form = nullptr;
    QLineEdit* m_txtProgram = nullptr;
    QLineEdit* m_txtCommand = nullptr;
    QLineEdit* m_txtDefaultProfile = nullptr;
    QLineEdit* m_txtScreenshotFolder = nullptr;
    QLineEdit* m_txtStateFolder = nullptr;
    QLineEdit* m_txtSaveFolder = nullptr;
};
