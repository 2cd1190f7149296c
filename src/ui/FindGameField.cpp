#include "ui/FindGameField.h"

#include <QKeyEvent>

namespace {

// A key that types a character into a text: no Ctrl, Alt or Meta, no blank.
bool TypesCharacter(const QKeyEvent* key) {
    if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const QString text = key->text();
    return !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
}

} // namespace

FindGameField::FindGameField(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("txtFilter"));
    setPlaceholderText(QStringLiteral("Find a game: words of its caption or file name (Ctrl+F)"));
    setClearButtonEnabled(true);
}

void FindGameField::Focus() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

bool FindGameField::TakeKeyFromList(const QKeyEvent* key) {
    if (key->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return true;
    }
    if (!TypesCharacter(key))
        return false;
    setFocus(Qt::OtherFocusReason);
    end(false);
    insert(key->text());
    return true;
}

void FindGameField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit PlayFirst();
        return;
    case Qt::Key_Down:
        emit ToList();
        return;
    case Qt::Key_Escape:
        clear();
        emit ToList();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}
