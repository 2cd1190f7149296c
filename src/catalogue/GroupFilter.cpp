#include "catalogue/GroupFilter.h"

#include "catalogue/GameList.h"
#include "catalogue/GroupList.h"

QStringList GroupCaptions(const GameList& games, const QString& group) {
    QStringList captions;
    for (const GameRecord& record : games.Records) {
        if (record.Filename.isEmpty())
            break;
        if (record.Group.compare(group, Qt::CaseInsensitive) == 0 &&
            record.Caption != RemovedCaption)
            captions.append(record.Caption);
    }
    return captions;
}

bool GroupExists(const GroupList& groups, const QString& name) {
    return name.compare(FixedGroup, Qt::CaseInsensitive) == 0 || groups.FindGroup(name) >= 0;
}
