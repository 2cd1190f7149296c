#include "catalogue/GroupViews.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "catalogue/GroupList.h"

namespace {

const QString Refusal = QStringLiteral(
    "\"All Games\" lists every game and cannot be a group; please choose another name.");

} // namespace

bool IsAllGamesView(const QString& name) {
    return name.trimmed().compare(AllGamesView, Qt::CaseInsensitive) == 0;
}

bool GroupExists(const GroupList& groups, const QString& name) {
    return name.compare(FixedGroup, Qt::CaseInsensitive) == 0 || groups.FindGroup(name) >= 0;
}

bool ViewExists(const GroupList& groups, const QString& name) {
    return IsAllGamesView(name) || GroupExists(groups, name);
}

QStringList SelectorLines(const GroupList& groups) {
    QStringList lines{AllGamesView, FixedGroup};
    for (const QString& group : groups.Entries) {
        if (group.isEmpty())
            break;
        if (!IsAllGamesView(group))
            lines.append(group);
    }
    return lines;
}

bool AddPlayerGroup(GroupList& groups, Prompts& prompts, const QString& name) {
    if (!IsAllGamesView(name))
        return groups.AddGroup(name);
    LogEvent(QStringLiteral("Attempting to add group: ") + name + QStringLiteral("..."));
    LogEvent(QStringLiteral("Refused: \"All Games\" lists every game."), true);
    prompts.Message(Refusal, PromptButtons::Ok, PromptIcon::Exclamation);
    return false;
}
