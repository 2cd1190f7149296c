#pragma once

#include <QList>
#include <QString>

class GameList;
class SettingsStore;
struct GameLine;

// The orders of `lumbra-cli list --sort`: most recent, most played, longest played
// first; games that tie keep their order.
enum class PlayOrder { LastPlayed, PlayCount, PlayTime };
bool PlayOrderFromName(const QString& name, PlayOrder& order);
void SortByPlay(const SettingsStore& store, const GameList& games, PlayOrder order,
                QList<GameLine>& lines);
