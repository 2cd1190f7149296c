#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QStringList>
#include <QTest>

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
