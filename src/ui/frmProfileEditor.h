#pragma once

#include <QDialog>
#include <optional>

class QLineEdit;
class SettingsStore;

// Creates a settings profile for an emulator: a name and the emulator's
// command-line options, written to the emulator's profile section.
class frmProfileEditor final : public QDialog {
    Q_OBJECT
public:
    frmProfileEditor(SettingsStore& store, const QString& emulatorName, QWidget* parent = nullptr);
    ~frmProfileEditor() override;

    // Opens the editor for a new profile; the name it was saved under, or
    // nothing when the player cancels.
    static std::optional<QString> NewProfile(SettingsStore& store, const QString& emulatorName,
                                             QWidget* parent);

    QString ProfileName() const;

private:
    void cmdOK_Click();

    SettingsStore& m_store;
    QString m_emulatorName;
    QLineEdit* m_txtProfileName = nullptr;
    QLineEdit* m_txtOptions = nullptr;
};
