#pragma once

#include <QList>
#include <QWidget>
#include <functional>
#include <utility>

class Prompts;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QToolButton;
class SystemShell;
class frmMain;
struct AppState;

// What the pages of the settings dialog work with.
struct SettingsContext {
    AppState& State;
    Prompts& UserPrompts;
    SystemShell& Shell;
    frmMain* MainWindow; // nullptr when no main window exists
    // The name chosen in the "Emulators" page's "Emulator:" selector.
    std::function<QString()> SelectedEmulator;
};

// One page of the settings dialog. Every control writes its setting the moment the
// player changes it; nothing is written back from the controls when a page is filled.
class SettingsPage : public QWidget {
    Q_OBJECT
public:
    // The text setting behind a control; emulator settings follow the selected emulator.
    using TextSetting = std::function<QString&()>;

    SettingsPage(SettingsContext& context, const QString& name);

    // Shows the settings in the controls: the dialog's load, page by page.
    virtual void Fill();

protected:
    // A check box that stores 1 or 0 in its flag when clicked, then runs changed.
    QCheckBox* AddFlag(const QString& name, const QString& caption, qint16& flag,
                       const QString& toolTip = QString(), std::function<void()> changed = {});
    // A caption and a text in a grid row; typing stores the text in the setting.
    QLineEdit* AddText(QGridLayout* grid, int row, const QString& caption, const QString& name,
                       TextSetting setting);
    // A caption and a selector in a grid row.
    QComboBox* AddSelector(QGridLayout* grid, int row, const QString& caption, const QString& name);
    // AddText with a browse button for a folder, in the grid's third column.
    QLineEdit* AddFolder(QGridLayout* grid, int row, const QString& caption, const QString& name,
                         TextSetting setting);
    QPushButton* AddButton(const QString& name, const QString& caption);
    // A small "..." button that picks a file or folder.
    QToolButton* AddPickButton(const QString& name, const QString& toolTip);

    SettingsContext& m_context;

private:
    void BrowseFolder(QLineEdit* text, const TextSetting& setting);
    // The caption in the row's first column, naming the control in its second.
    void AddCaptioned(QGridLayout* grid, int row, const QString& caption, QWidget* control);

    QList<std::pair<QCheckBox*, qint16*>> m_flags;
    QList<std::pair<QLineEdit*, TextSetting>> m_texts;
};
