#pragma once

#include <QString>
#include <optional>

class GameList;
class Prompts;
struct AppState;

// The game menu's and the information dialog's changes to one catalogue entry. Each
// writes its own log line; the list view is brought up to date by the caller.

// Asks for a new caption. The caption stored, or nothing when the answer is empty,
// differs from the current caption in letter case only, or is another game's
// caption (the player is told).
std::optional<QString> RenameGame(GameList& games, Prompts& prompts, int index);

// Hides the game: it keeps its record, captioned "/invisible", and is saved so.
void RemoveGame(GameList& games, int index);

// Puts the game into "Ungrouped" or one of the player's groups, spelt as the
// group list spells it.
void SendToGroup(AppState& state, int index, const QString& group);

// Asks for a new group, adds it and puts the game into it. The new group's name, or
// nothing when the group list refuses the answer.
std::optional<QString> SendToNewGroup(AppState& state, Prompts& prompts, int index);

// The information dialog's OK: an empty caption or another game's caption is
// refused with a message, a changed one is stored.
enum class CaptionCheck { Unchanged, Changed, Refused };
CaptionCheck ChangeCaption(GameList& games, Prompts& prompts, int index, const QString& caption);
