#pragma once

// The widgets the window tests drive, included once for them all.
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

// The window's control by name; the running test fails when there is none.
template <typename T = QWidget> T* ControlIn(const QWidget* window, const QString& name) {
    T* control = window->findChild<T*>(name);
    EXPECT_NE(control, nullptr) << name.toStdString();
    return control;
}

// A click on the window's control by name.
inline void ClickOn(const QWidget* window, const QString& name) {
    QTest::mouseClick(ControlIn(window, name), Qt::LeftButton);
}

// Replaces the line's text with the text, typed as a player would.
inline void TypeInto(QLineEdit* line, const QString& text) {
    line->selectAll();
    QTest::keyClicks(line, text);
}
inline void TypeInto(const QWidget* window, const QString& name, const QString& text) {
    TypeInto(ControlIn<QLineEdit>(window, name), text);
}

// Picks the entry from the selector's drop-down list, as a player would.
inline void PickFromList(QComboBox* box, const QString& entry) {
    box->showPopup();
    QAbstractItemView* view = box->view();
    const QModelIndex index = view->model()->index(box->findText(entry), 0);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
}

// The list's lines, top to bottom.
inline QStringList ItemTexts(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

// The selector's entries, top to bottom.
inline QStringList ItemTexts(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

// Shows the window and waits until it is on screen.
inline bool ShownOnScreen(QWidget* window) {
    window->show();
    return QTest::qWaitForWindowExposed(window);
}

// A click on the list's line at row.
inline void ClickLine(QListWidget* list, int row, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(list->item(row)).center());
}

// Runs the steps on the modal dialog that the caller is about to open, once it is
// there, whatever the machine's speed; the steps should close it.
inline void RunWhenModal(const std::function<void(QWidget*)>& steps) {
    QTimer::singleShot(0, [steps] {
        if (QWidget* dialog = QApplication::activeModalWidget())
            steps(dialog);
        else
            RunWhenModal(steps);
    });
}

// Runs the steps in the dialog that open() brings up, and closes it when they did not.
inline void InDialog(const std::function<void()>& open,
                     const std::function<void(QDialog*)>& steps) {
    RunWhenModal([&steps](QWidget* modal) {
        auto* dialog = qobject_cast<QDialog*>(modal);
        steps(dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    open();
}

// Names the profile, with its options, in the profile editor that is about to open, and
// saves it.
inline void SaveProfileInEditor(const QString& name, const QString& options = {}) {
    RunWhenModal([name, options](QWidget* editor) {
        QTest::keyClicks(ControlIn<QLineEdit>(editor, "txtProfileName"), name);
        QTest::keyClicks(ControlIn<QLineEdit>(editor, "txtOptions"), options);
        ClickOn(editor, "cmdOK");
    });
}

// The menu's visible entries, a checked one marked with '*'; with enabledOnly, only
// the entries that can be chosen.
inline QStringList MenuEntries(const QMenu* menu, bool enabledOnly = false) {
    QStringList captions;
    for (const QAction* item : menu->actions()) {
        if (item->isVisible() && !item->isSeparator() && (item->isEnabled() || !enabledOnly))
            captions << item->text() + (item->isChecked() ? "*" : "");
    }
    return captions;
}
