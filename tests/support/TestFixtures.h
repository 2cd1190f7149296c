#pragma once

#include "base/EventLog.h"
#include "catalogue/AppState.h"

#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <utility>

// A test with an empty settings store, a fresh application state, the event log
// reset (debug mode off) and a temporary folder for files. The current folder is
// restored when the test ends.
class LumbraTest : public ::testing::Test {
protected:
    LumbraTest();
    ~LumbraTest() override;

    // Turns debug mode on, with the log held in memory.
    void EnableLog();
    QString LogText() const { return EventLog::Text(); }

    // A file in the temporary folder (folders made as needed), with the given bytes.
    QString WriteFile(const QString& relativePath, const QByteArray& bytes = QByteArray());
    QString MakeFolder(const QString& relativePath);
    QString TempPath(const QString& relativePath = QString()) const;
    // A file's bytes; empty when it cannot be read.
    static QByteArray ReadFile(const QString& path);
    // Zips the files, in order under their relative paths, with QzZipFiles into the
    // archive at relativePath; with a password, encrypted. Returns the archive's path.
    using Files = QList<std::pair<QString, QByteArray>>;
    QString MakeZip(const QString& relativePath, const Files& files, const QString& password = {});

    // The games' captions, in catalogue order.
    QStringList Captions() const;
    // A game in the first free slot, played with the default emulator and profile.
    GameRecord& AddGame(const QString& caption, const QString& filename,
                        const QString& folder = QStringLiteral("/roms/"),
                        const QString& group = FixedGroup);

    QTemporaryDir m_temp;
    AppState m_state;

private:
    const QString m_startFolder;
};

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
