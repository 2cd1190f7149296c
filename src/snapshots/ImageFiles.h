#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// Run-time error numbers of the file operations below.
constexpr int FileNotFound = 53;
constexpr int FileAlreadyExists = 58;
constexpr int PathFileAccessError = 75;
constexpr int PathNotFound = 76;

struct FileError {
    int Number = 0;
    QString Description;
};

// The picture files of a folder as the snapshot wizard's file list shows them: the
// pattern "*.bmp;*.gif;*.jpg;*.png" (one per picture type) in any letter case,
// hidden files left out, sorted by name without regard to case; the first limit
// names. Nothing when the folder is empty text or does not exist.
QStringList ListImages(const QString& folder, qsizetype limit);

// Moves a file by renaming it; between file systems it is copied and the source
// removed. The target's folder is made when it does not exist. A target that exists
// in any letter case is not replaced: FileAlreadyExists.
std::optional<FileError> MoveImage(const QString& source, const QString& target);

// Deletes a file for good.
std::optional<FileError> RemoveImage(const QString& path);
