#pragma once

#include <QLineEdit>

class QKeyEvent;

// The field above the game list where the player types words to find games. Enter
// asks to play the first game shown, Down to move into the list, and Escape clears
// the field and moves into the list.
class FindGameField final : public QLineEdit {
    Q_OBJECT
public:
    explicit FindGameField(QWidget* parent);

    // Takes the keyboard focus with the text selected, so that typing replaces it.
    void Focus();
    // A key pressed in the game list: a character starts (or goes on with) the
    // search, Escape clears a search. False for every other key.
    bool TakeKeyFromList(const QKeyEvent* key);

signals:
    void PlayFirst();
    void ToList();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
