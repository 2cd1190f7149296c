#include "support/TestFixtures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

LumbraTest::LumbraTest() {
    EventLog::Reset();
    m_state.Store.Clear();
}

LumbraTest::~LumbraTest() {
    EventLog::Reset();
    m_state.Store.Clear();
}

void LumbraTest::EnableLog() {
    EventLog::SetDebugMode(true);
}

QString LumbraTest::TempPath(const QString& relativePath) const {
    return relativePath.isEmpty() ? m_temp.path() : m_temp.path() + QLatin1Char('/') + relativePath;
}

QString LumbraTest::MakeFolder(const QString& relativePath) {
    const QString path = TempPath(relativePath);
    QDir().mkpath(path);
    return path;
}

QString LumbraTest::WriteFile(const QString& relativePath, const QByteArray& bytes) {
    const QString path = TempPath(relativePath);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QByteArray LumbraTest::ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
