#pragma once

#include <QString>
#include <QtGlobal>

class Prompts;
class UnzipFolder;
struct UnzipState;
struct archive;
struct archive_entry;

// Unzip's return codes (0 is success).
enum UnzipCode : int {
    UnzipOk = 0,
    UnzipSkippedEntries = 1, // links, devices or entries without a usable file name left out
    UnzipDamaged = 2,        // the archive is damaged or cut short
    UnzipNoArchive = 9,      // the archive cannot be opened or is not a zip archive
    UnzipNoFolder = 10,      // no archive name, or the extract folder cannot be opened
    UnzipTooLarge = 11,      // beyond MaxEntries or MaxBytes: everything written was deleted
    UnzipWriteFailed = 50,   // a file could not be written into the extract folder
    UnzipNoPassword = 82,    // an encrypted entry was left out: no password, or a wrong one
};

// Extracts one zip archive, through libarchive, flat into one folder. Unzip clears the
// shared UnzipState, then records there each written file's name, in order, and
// collects the message text: libarchive's reasons and a line for each file.
//
// Extraction is always flat and never writes outside the folder: an entry's name is
// cut to its last path component ("\" counts as a separator too); entries whose name
// then is empty, "." or "..", and entries that are not regular files (links, devices,
// FIFOs), are left out. Control characters in a name become U+FFFD, in the file's name
// and in the message alike. Of entries whose names are the same (letter case aside), the
// first wins: the later ones are left out, each with an event-log line and a message
// line, and the result stays what it was. An archive of more than MaxEntries entries, or
// one that expands beyond MaxBytes, stops the extraction, and the files it wrote are
// deleted.
//
// The properties keep the unzip library's options and defaults. What each does here:
//   ExtractNewer       freshen: only files the folder already holds, when the entry is
//                      newer (by modification time); nothing new is made
//   SpaceToUnderScore  blanks in a file's name become "_"
//   PromptOverwrite    asks "Overwrite <name>" (yes, no) before replacing a file
//   Privilege          not honoured: owners, permissions and access lists stored in the
//                      archive are ignored; files get read-write permission less the umask
//   WriteToStdOut      not honoured: files are written into the folder as usual
//   TestZip            every entry is read and its checksum tested; nothing is written
//   ExtractList        not 0: the message lists each entry with its size; nothing is
//                      written
//   ExtractOnlyNewer   an existing file is replaced only by a newer entry; new files are
//                      made
//   DisplayComment     not honoured: libarchive does not give the archive's comment;
//                      the extraction goes on as usual
//   HonorDirectories   not honoured when true: stored folders are never made
//   OverWriteFiles     false keeps every existing file (unless PromptOverwrite asks)
//   ConvertCRtoCRLF    not honoured: files are written byte for byte
//   Verbose            not honoured: the message has the same lines either way
//   CaseSensitive      no effect: it concerns include and exclude lists, and Unzip passes
//                      none
//   MessageLevel       0 every line, 1 only failures, 2 or more nothing
//   ZipFileName        the archive
//   ExtractDir         the folder, made when missing; empty means the current folder
// A written file keeps the entry's modification time. An encrypted entry (traditional
// or AES zip encryption) asks "Please Enter The Password!" until the password fits; a
// cancel, or an empty answer, leaves out that entry and every later encrypted one.
class QzUnzipFiles {
public:
    static constexpr int MaxEntries = 100;
    // What a whole archive may expand to; far beyond any SNES game.
    qint64 MaxBytes = qint64(256) << 20;

    QzUnzipFiles(UnzipState& state, Prompts& prompts);

    bool ExtractNewer = false;
    bool SpaceToUnderScore = false;
    bool PromptOverwrite = false;
    qint16 Privilege = 2;
    bool WriteToStdOut = false;
    bool TestZip = false;
    qint16 ExtractList = 0;
    bool ExtractOnlyNewer = false;
    bool DisplayComment = false;
    bool HonorDirectories = true;
    bool OverWriteFiles = true;
    bool ConvertCRtoCRLF = false;
    bool Verbose = false;
    bool CaseSensitive = true;
    qint16 MessageLevel = 0;
    QString ZipFileName;
    QString ExtractDir;

    // A non-empty argument replaces its property first. Returns an UnzipCode.
    int Unzip(const QString& zipName = QString(), const QString& extractDir = QString());
    QString GetLastMessage() const;
    // The index-th name written by the last extraction; empty when there is none.
    QString FileList(int index) const;

private:
    struct Run;

    void ExtractEntry(Run& run, archive_entry* entry);
    // Reads the entry's data into the folder's new file; without a folder, only reads.
    bool ReadData(Run& run, archive_entry* entry, UnzipFolder* folder);
    bool ShouldWrite(Run& run, archive_entry* entry, const QString& name);
    void StopTooLarge(Run& run, const QString& reason);
    // Deletes every file the extraction wrote and forgets their names.
    void RollBack(Run& run);
    void Record(const QString& name);
    // A failure line, shown up to MessageLevel 1; a per-file line, shown at 0.
    void Fail(Run& run, int code, const QString& line);
    void Note(const QString& line);
    void Append(const QString& line);
    static const char* AskPassword(archive* reader, void* self);

    UnzipState& m_state;
    Prompts& m_prompts;
    Run* m_run = nullptr;
};
