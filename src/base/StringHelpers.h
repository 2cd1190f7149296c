#pragma once

#include <QString>
#include <QStringList>

// 1-based position of the last occurrence of search in text (case-sensitive), 0 if none.
int InStrLast(const QString& text, const QString& search);

// 1-based position of the last path separator ("\" or "/") in path, 0 if none.
int InStrLastSeparator(const QString& path);

bool EndsWithSeparator(const QString& path);

// The fieldNumber-th (1-based) field of a record. The record is trimmed of blanks,
// its fields are not; only the delimiter's first character counts. Out of range,
// or with an empty delimiter, the field is empty.
QString GetField(const QString& record, int fieldNumber, const QString& delimiter);
// Every field of a record at once: GetField(record, n, delimiter) is the (n - 1)th.
QStringList GetFields(const QString& record, const QString& delimiter);

// The path trimmed of blanks, with the native separator appended unless it is empty
// or already ends in a separator.
QString AddBackslash(const QString& path);

// The part after the last separator; the path unchanged if it has none or ends in one.
QString GetFileName(const QString& path);

// The text up to and including its last "." followed by extension, or text + "." +
// extension when there is no dot. An empty name becomes "New File". The dot may
// stand in a folder name: the helper does not look for the last path component.
QString ChangeExtension(const QString& fileName, const QString& extension);

// text.toLower(), without Unicode tables for plain ASCII and without a copy when
// nothing changes: the catalogue lower-cases every name it keeps or looks up.
QString LowerCase(const QString& text);
// A copy of the text with A to Z lowered and every other character kept: the lower
// case of plain ASCII.
QString AsciiLowerCase(QStringView text);

// VB's Trim: removes leading and trailing spaces only.
QString TrimBlanks(const QString& text);

// The text with every control character replaced by U+FFFD, so that it cannot
// break a line or garble a terminal.
QString ReplaceControlCharacters(QString text);

// The value of a hexadecimal digit, or -1 for any other character.
inline int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}
