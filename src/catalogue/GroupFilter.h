#pragma once

#include <QStringList>

class GameList;
class GroupList;

// The captions that the game list shows for a group: games whose group equals it
// without regard to case, removed games left out, in catalogue order.
QStringList GroupCaptions(const GameList& games, const QString& group);

// Whether the group selector holds the name: "Ungrouped" or a custom group, in any case.
bool GroupExists(const GroupList& groups, const QString& name);
