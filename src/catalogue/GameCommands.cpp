#include "catalogue/GameCommands.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/GroupViews.h"

namespace {

const QString Title = QStringLiteral("title");

// Whether a game other than the one at index has the caption (in any letter case).
bool UsedByAnother(const GameList& games, int index, const QString& caption) {
    const int holder = games.FindGame(Title, caption);
    return holder >= 0 && holder != index;
}

void StoreCaption(GameRecord& game, const QString& caption) {
    game.Caption = caption;
    LogEvent(game.Filename + QStringLiteral(" Caption Changed"));
}

QString Quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

std::optional<QString> RenameGame(GameList& games, Prompts& prompts, int index) {
    GameRecord& game = games.Records[index];
    const QString answer =
        TrimBlanks(prompts
                       .Input(QStringLiteral("Enter a new caption for:\r\n\r\n") + game.Caption,
                              QStringLiteral("Rename"), game.Caption)
                       .value_or(QString()));
    // A change of letter case alone counts as no change.
    if (answer.isEmpty() || answer.compare(game.Caption, Qt::CaseInsensitive) == 0)
        return std::nullopt;
    if (UsedByAnother(games, index, answer)) {
        prompts.Message(
            QStringLiteral("Caption cannot be renamed, the caption you entered is already used."));
        return std::nullopt;
    }
    StoreCaption(game, answer);
    return answer;
}

void RemoveGame(GameList& games, int index) {
    GameRecord& game = games.Records[index];
    LogEvent(QStringLiteral("Removed Game From List: ") + game.Caption);
    game.Caption = RemovedCaption;
}

void SendToGroup(AppState& state, int index, const QString& group) {
    GameRecord& game = state.Games.Records[index];
    LogEvent(QStringLiteral("Sent ") + Quoted(game.Caption) + QStringLiteral(" to ") +
             Quoted(group));
    const int entry = state.Groups.FindGroup(group);
    game.Group = entry >= 0 ? state.Groups.Entries[entry] : group;
}

std::optional<QString> SendToNewGroup(AppState& state, Prompts& prompts, int index) {
    const QString name =
        prompts
            .Input(QStringLiteral("Enter the new group's caption:"), QStringLiteral("Create Group"))
            .value_or(QString());
    if (!AddPlayerGroup(state.Groups, prompts, name))
        return std::nullopt;
    state.Games.Records[index].Group = name;
    return name;
}

CaptionCheck ChangeCaption(GameList& games, Prompts& prompts, int index, const QString& caption) {
    if (caption.isEmpty()) {
        prompts.Message(QStringLiteral("The game has no caption, please enter one!"));
        return CaptionCheck::Refused;
    }
    GameRecord& game = games.Records[index];
    if (caption == game.Caption)
        return CaptionCheck::Unchanged;
    if (UsedByAnother(games, index, caption)) {
        prompts.Message(QStringLiteral(
            "The caption you entered is already used by another game, please enter another."));
        return CaptionCheck::Refused;
    }
    StoreCaption(game, caption);
    return CaptionCheck::Changed;
}
