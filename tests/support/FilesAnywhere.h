#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// Files outside a test's temporary folder (the settings store, the XDG folders), and
// file details the temporary-folder helpers do not set. Each returns false when the
// system refuses.

// Writes the bytes to the file at the absolute path, making its folders.
bool WriteFileAt(const QString& path, const QByteArray& bytes = QByteArray());
// Sets the file's modification time.
bool SetModifiedTime(const QString& path, const QDateTime& time);

// An empty file "latin\xe9.smc", a name that is not valid UTF-8, in the folder while
// it lives: the temporary folder cannot name it to remove it.
class NonUtf8NamedFile {
public:
    explicit NonUtf8NamedFile(const QString& folder);
    ~NonUtf8NamedFile();
    NonUtf8NamedFile(const NonUtf8NamedFile&) = delete;
    NonUtf8NamedFile& operator=(const NonUtf8NamedFile&) = delete;

private:
    QByteArray m_path;
};
