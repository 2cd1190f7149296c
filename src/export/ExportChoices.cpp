#include "export/ExportChoices.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

int ColumnIndex(const QString& key) {
    for (int i = 0; i < ColumnKeys.size(); ++i) {
        if (ColumnKeys[i].compare(key, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QString ProductLink() {
    const QFileInfo installed(QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../share/doc/lumbra/README.md"));
    const QString readme =
        installed.exists() ? installed.canonicalFilePath() : QStringLiteral(LUMBRA_SOURCE_README);
    return QUrl::fromLocalFile(readme).toString(QUrl::FullyEncoded);
}
