#pragma once

#include <QStringList>

class GroupList;
class Prompts;

// The views that a group selector offers: "All Games", "Ungrouped" and the groups.

// The first line of the group selector: every game that is not removed. It is a
// view, never a group: no game is in it, it is not stored with the groups, and no
// group may take its name.
inline const QString AllGamesView = QStringLiteral("All Games");

// Whether the name is the view's, without regard to case or surrounding blanks
// (the selector finds its lines without regard to case).
bool IsAllGamesView(const QString& name);

// Whether the name is a group a game can be in: "Ungrouped" or a custom group, in any case.
bool GroupExists(const GroupList& groups, const QString& name);

// Whether the group selector shows the name: "All Games", "Ungrouped" or a group.
bool ViewExists(const GroupList& groups, const QString& name);

// The lines of a group selector: "All Games", "Ungrouped", then the groups in
// their order. A group stored under the view's name (by an older Lumbra, or by hand)
// is left out: the view would hide it.
QStringList SelectorLines(const GroupList& groups);

// Adds a group that the player named. The view's name is refused with a message
// (and a log line); everything else is the group list's to decide.
bool AddPlayerGroup(GroupList& groups, Prompts& prompts, const QString& name);
