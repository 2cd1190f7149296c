#pragma once

#include "export/ExportChoices.h"

#include <QList>
#include <QString>

class GameList;
class Progress;
class QIODevice;

// The game list export: the catalogue, or the part the choices keep, written as a
// padded plain-text table or as an HTML page, every line ending in "\r\n".
//
// Decisions where the behaviour is ours to choose:
// - Filters: a folder is compared in lower case with a trailing separator on both
//   sides; a group and a file pattern are compared without regard to case, so
//   "*.SFC" finds "game.sfc".
// - Sort: texts are compared lower-cased, code unit by code unit, so the order is
//   the same on every machine; the file size is compared as a number. Ties keep
//   the catalogue's order.
// - Plain text is UTF-8 and counts widths in characters. Its footer follows the
//   table after a blank line, with a blank line between the count and the credit.
// - HTML: the page declares ISO-8859-1, so it is written in Latin-1, and every
//   character outside it goes as a numeric character reference. Texts from file
//   names and from the player are escaped ("&", "<", ">", '"'). The first row
//   takes "#F0F0F0", and a size cell holds the plain-text size without its
//   padding ("2K").
// - Control characters in a text become U+FFFD, so a file name cannot break a line.
// - A file larger than 4 GiB shows its real size rather than a 32-bit count.
// - The write order is taken as given, a key named twice is written twice; the
//   dialog keeps its six boxes naming each column once.
// - Footer link: the project has no web site, so both footers link to the README
//   installed with Lumbra (ProductLink()).
// - A game file that cannot be measured fails the export before the target is
//   opened, so the target stays as it was.

// One line of the export.
struct ExportRow {
    QString Caption;
    QString Filename;
    QString Folder;
    QString Group;
    QString FileType;
    qint64 FileSize = 0;
};

// text extended with blanks to width (on the left when alignRight); a text at
// least as long as width comes back whole.
QString PadText(const QString& text, int width, bool alignRight);
// The file type that the file name's extension names ("Super Famicon" for
// ".sfc"); empty for an extension not in the table.
QString FileTypeName(const QString& fileName);
// Whole KiB, right-aligned in 4 characters, then "K": "   2K" for 2,048 bytes.
QString FileSizeText(qint64 bytes);
// "*" and "?" wildcards; every other character stands for itself.
bool MatchesFilePattern(const QString& fileName, const QString& pattern);

// The catalogue indexes that the choices keep, in catalogue order. Removed games
// never appear.
QList<int> SelectGames(const GameList& games, const ExportChoices& choices);

// Writes the export of the catalogue to the file at path, replacing it; the caller
// has asked before replacing. False when a game file's size cannot be read or the
// file cannot be written; reason (when given) then says why. Progress gets the
// stage texts ("Sorting List...") as labels, and one step per record written.
bool WriteGameListExport(const GameList& games, const ExportChoices& choices, const QString& path,
                         Progress& progress, QString* reason = nullptr);
// The same, written to an open device (standard output).
bool WriteGameListExport(const GameList& games, const ExportChoices& choices, QIODevice& output,
                         Progress& progress, QString* reason = nullptr);
