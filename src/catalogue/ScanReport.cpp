#include "catalogue/ScanReport.h"

#include "catalogue/GameList.h"

#include <QLocale>

namespace {

// Counts with a thousands separator, whatever the player's locale.
QString Number(int count) {
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(count);
}

QString Files(int count) {
    return Number(count) + (count == 1 ? QStringLiteral(" file") : QStringLiteral(" files"));
}

} // namespace

ScanReport& ScanReport::operator+=(const ScanReport& other) {
    LeftOutFull += other.LeftOutFull;
    LeftOutNames += other.LeftOutNames;
    LeftOutCaseTwins += other.LeftOutCaseTwins;
    return *this;
}

QString ScanReport::Summary() const {
    QStringList sentences;
    if (LeftOutFull > 0)
        sentences.append(QStringLiteral("The catalogue is full (%1 games): %2 left out.")
                             .arg(Number(GameList::Capacity), Files(LeftOutFull)));
    if (LeftOutNames > 0)
        sentences.append(Files(LeftOutNames) +
                         QStringLiteral(" left out: the name is not valid UTF-8; rename it."));
    if (LeftOutCaseTwins > 0)
        sentences.append(Files(LeftOutCaseTwins) +
                         QStringLiteral(" left out: another file in the folder has the same name "
                                        "in other letter case."));
    return sentences.join(QLatin1Char(' '));
}
