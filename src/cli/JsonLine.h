#pragma once

#include <QList>
#include <QString>
#include <utility>

// One JSON object on one line, keys in the given order, every value a string.
QString JsonLine(const QList<std::pair<QString, QString>>& fields);
