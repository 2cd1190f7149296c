#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class Prompts;
struct archive;

// An error of the zip list: number 2001 (above the object-error base, in the original
// component's terms), its description and the operation that raised it.
struct QzZipError {
    int Number = 2001;
    QString Description;
    QString Source;
};

// MakeZipFile's return codes (0 is success).
enum ZipCode : int {
    ZipOk = 0,
    ZipCancelled = 9,    // the password prompt was cancelled
    ZipNothingToDo = 12, // the list is empty
    ZipCannotWrite = 15, // the archive cannot be written; libarchive's reason is in the message
    ZipCannotRead = 18,  // a listed file or folder is missing or unreadable
};

// Writes a zip archive, through libarchive, from a list of files and folders.
//
// A listed name that is relative is taken from RootDirectory (or the current folder).
// Each entry is stored under its path relative to RootDirectory; a file outside it is
// stored under its file name alone, so no stored name is absolute or climbs with "..".
// Links are not followed into folders, and FIFOs and devices are never taken.
//   RecurseFolders      a listed folder brings everything below it; without it, only the
//                       folder's own entry
//   Encrypted           asks "Please Enter The Password!" and encrypts every file with
//                       AES-256
//   IncludeSystemFiles  hidden files (names starting with ".") are taken when recursing
//   UpdatingZip         not honoured: libarchive cannot change an existing archive; the
//                       archive is always written anew from the list
// The archive is written under a temporary name and renamed when complete, so a failure
// leaves an existing archive as it was.
class QzZipFiles {
public:
    explicit QzZipFiles(Prompts& prompts) : m_prompts(prompts) {}

    bool RecurseFolders = false;
    bool Encrypted = false;
    bool IncludeSystemFiles = false;
    bool UpdatingZip = false;
    QString RootDirectory;
    QString ZipFileName;

    [[nodiscard]] std::optional<QzZipError> AddFile(const QString& name);
    [[nodiscard]] std::optional<QzZipError> RemoveFile(const QString& name);
    int ZipFileCount() const { return static_cast<int>(m_files.size()); }

    // Returns a ZipCode.
    int MakeZipFile();
    QString GetLastMessage() const { return m_message; }

private:
    struct Item {
        QString Path;   // on disk
        QString Stored; // in the archive; a folder's ends in "/"
    };
    QList<Item> CollectItems() const;
    int WriteItem(archive* writer, const Item& item);
    int Fail(int code, const QString& message);

    Prompts& m_prompts;
    QStringList m_files;
    QString m_message;
};
