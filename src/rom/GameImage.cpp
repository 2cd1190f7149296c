#include "rom/GameImage.h"

#include "base/StringHelpers.h"

#include <QStringList>

bool IsGameImage(const QString& name) {
    static const QStringList GameExtensions = {
        QStringLiteral("1"),   QStringLiteral("058"), QStringLiteral("078"), QStringLiteral("fig"),
        QStringLiteral("sfc"), QStringLiteral("smc"), QStringLiteral("swc")};
    const int dot = InStrLast(name, QStringLiteral("."));
    if (dot == 0 || dot == name.size())
        return false;
    return GameExtensions.contains(name.mid(dot).toLower());
}

bool IsZippedGame(const QString& fileName) {
    return fileName.right(3).compare(QLatin1String("zip"), Qt::CaseInsensitive) == 0;
}
