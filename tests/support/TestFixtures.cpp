#include "support/TestFixtures.h"
#include "rom/QzZipFiles.h"
#include "support/ScriptedPrompts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

LumbraTest::LumbraTest() : m_startFolder(QDir::currentPath()) {
    EventLog::Reset();
    m_state.Store.Clear();
}

LumbraTest::~LumbraTest() {
    QDir::setCurrent(m_startFolder);
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

QStringList LumbraTest::Captions() const {
    QStringList captions;
    for (int i = 0; i < m_state.Games.Count(); ++i)
        captions << m_state.Games.Records[i].Caption;
    return captions;
}

GameRecord& LumbraTest::AddGame(const QString& caption, const QString& filename,
                                const QString& folder, const QString& group) {
    GameRecord& record = m_state.Games.Records[m_state.Games.Count()];
    record = {caption, filename, {}, {}, folder, {}, group, "Default", "Default"};
    return record;
}

QByteArray LumbraTest::ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString LumbraTest::MakeZip(const QString& relativePath, const Files& files,
                            const QString& password) {
    ScriptedPrompts prompts;
    QzZipFiles zip(prompts);
    const QString source = "source-" + QFileInfo(relativePath).fileName();
    zip.RootDirectory = MakeFolder(source);
    zip.ZipFileName = TempPath(relativePath);
    for (const auto& [path, bytes] : files) {
        WriteFile(source + QLatin1Char('/') + path, bytes);
        EXPECT_FALSE(zip.AddFile(path));
    }
    zip.Encrypted = !password.isEmpty();
    if (zip.Encrypted)
        prompts.AnswerInput(password);
    EXPECT_EQ(zip.MakeZipFile(), ZipOk) << zip.GetLastMessage().toStdString();
    return zip.ZipFileName;
}
