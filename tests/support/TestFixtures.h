#pragma once

#include "app/AppState.h"
#include "app/EventLog.h"

#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// A test with an empty settings store, a fresh application state, the event log
// reset (debug mode off) and a temporary folder for files.
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

    QTemporaryDir m_temp;
    AppState m_state;
};

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
