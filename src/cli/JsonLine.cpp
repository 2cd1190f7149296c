#include "cli/JsonLine.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString JsonString(const QString& text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

} // namespace

QString JsonLine(const QList<std::pair<QString, QString>>& fields) {
    QStringList members;
    for (const auto& [key, value] : fields)
        members.append(JsonString(key) + QLatin1Char(':') + JsonString(value));
    return QLatin1Char('{') + members.join(QLatin1Char(',')) + QLatin1Char('}');
}
