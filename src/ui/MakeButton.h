#pragma once

#include <QPushButton>

// A dialog's push button under its control name. It is not an auto-default
// button, so Enter in a list or a box does not press it.
inline QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}
