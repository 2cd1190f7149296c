#pragma once

#include <QString>
#include <QStringList>
#include <array>

// Which games an export takes, in the order of the dialog's option buttons.
enum class ExportMethod { EntireList = 0, GameFolder = 1, Group = 2, FilePattern = 3 };
// In the order of the dialog's format buttons.
enum class ExportFormat { PlainText = 0, Html = 1 };

// The column keys, in the order in which the sort and write-order lists offer them.
inline const QStringList ColumnKeys = {QStringLiteral("Caption"),   QStringLiteral("Group"),
                                       QStringLiteral("File Size"), QStringLiteral("File Type"),
                                       QStringLiteral("Filename"),  QStringLiteral("Folder")};
constexpr int ColumnCount = 6;

struct ExportColumn {
    QString Key; // one of ColumnKeys
    bool Written = true;
};

// Everything an export needs besides the catalogue.
struct ExportChoices {
    ExportMethod Method = ExportMethod::EntireList;
    QString Filter; // the folder, group or file pattern that the method keeps
    QString SortKey = ColumnKeys[0];
    std::array<ExportColumn, ColumnCount> WriteOrder{{{ColumnKeys[0]},
                                                      {ColumnKeys[1]},
                                                      {ColumnKeys[2]},
                                                      {ColumnKeys[3]},
                                                      {ColumnKeys[4]},
                                                      {ColumnKeys[5]}}};
    ExportFormat Format = ExportFormat::PlainText;
    QString ProductLink; // the last line of both footers
};

// The position of key in ColumnKeys, compared without regard to case; -1 if none.
int ColumnIndex(const QString& key);

// Where the footers point: the README installed beside the program (a file URL),
// or the source tree's README when the program runs from its build folder. The
// project has no web site, so the link names the document that describes it.
QString ProductLink();
