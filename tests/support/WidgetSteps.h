#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>

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
