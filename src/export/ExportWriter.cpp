#include "export/ExportWriter.h"

#include "base/AppTitle.h"
#include "base/Progress.h"
#include "base/StringHelpers.h"
#include "catalogue/GameList.h"
#include "platform/PathResolver.h"
#include "platform/SaveFile.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QSaveFile>
#include <algorithm>
#include <optional>

namespace {

enum Column { CaptionColumn, GroupColumn, SizeColumn, TypeColumn, FilenameColumn, FolderColumn };

constexpr int ColumnWidths[ColumnCount] = {30, 20, 10, 25, 30, 30};
const QString LineEnd = QStringLiteral("\r\n");

struct FileType {
    const char* Extension;
    const char* Name;
};
constexpr FileType FileTypes[] = {{".058", "058 File"},       {".078", "078 File"},
                                  {".1", "Split ROM Image"},  {".fig", "FIG File"},
                                  {".sfc", "Super Famicon"},  {".smc", "Super Magicom"},
                                  {".swc", "Super WildCard"}, {".zip", "Zip Compressed"}};

// The text the row shows in column; the size as "   2K".
QString CellText(const ExportRow& row, int column) {
    switch (column) {
    case CaptionColumn:
        return row.Caption;
    case GroupColumn:
        return row.Group;
    case SizeColumn:
        return FileSizeText(row.FileSize);
    case TypeColumn:
        return row.FileType;
    case FilenameColumn:
        return row.Filename;
    default:
        return row.Folder;
    }
}

QString HtmlCellText(const ExportRow& row, int column) {
    const QString text = CellText(row, column);
    return column == SizeColumn ? text.trimmed() : text;
}

QString ColumnTitle(int column) {
    if (column == SizeColumn)
        return QStringLiteral("Size");
    if (column == TypeColumn)
        return QStringLiteral("Type");
    return ColumnKeys[column];
}

QList<int> WrittenColumns(const ExportChoices& choices) {
    QList<int> columns;
    for (const ExportColumn& column : choices.WriteOrder) {
        const int index = ColumnIndex(column.Key);
        if (column.Written && index >= 0)
            columns << index;
    }
    return columns;
}

bool KeptByMethod(const GameRecord& record, const ExportChoices& choices) {
    switch (choices.Method) {
    case ExportMethod::EntireList:
        return true;
    case ExportMethod::GameFolder:
        return AddBackslash(record.Folder).toLower() == AddBackslash(choices.Filter).toLower();
    case ExportMethod::Group:
        return record.Group.compare(choices.Filter, Qt::CaseInsensitive) == 0;
    case ExportMethod::FilePattern:
        return MatchesFilePattern(record.Filename, choices.Filter);
    }
    return false;
}

// The rows of the kept games; nothing when a game file's size cannot be read.
std::optional<QList<ExportRow>> FillRows(const GameList& games, const QList<int>& kept,
                                         QString& reason) {
    PathResolver resolver;
    QList<ExportRow> rows;
    rows.reserve(kept.size());
    for (const int index : kept) {
        const GameRecord& record = games.Records[index];
        const QString path = record.Folder + record.Filename;
        const QFileInfo file(resolver.Resolve(path));
        if (!file.isFile()) {
            reason = QStringLiteral("cannot read the size of ") + path;
            return std::nullopt;
        }
        rows.append(
            {ReplaceControlCharacters(record.Caption), ReplaceControlCharacters(record.Filename),
             ReplaceControlCharacters(record.Folder), ReplaceControlCharacters(record.Group),
             FileTypeName(record.Filename), file.size()});
    }
    return rows;
}

void SortRows(QList<ExportRow>& rows, int sortColumn) {
    if (sortColumn == SizeColumn) {
        std::stable_sort(rows.begin(), rows.end(), [](const ExportRow& a, const ExportRow& b) {
            return a.FileSize < b.FileSize;
        });
        return;
    }
    QList<std::pair<QString, ExportRow>> keyed;
    keyed.reserve(rows.size());
    for (ExportRow& row : rows)
        keyed.append({CellText(row, sortColumn).toLower(), std::move(row)});
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (qsizetype i = 0; i < keyed.size(); ++i)
        rows[i] = std::move(keyed[i].second);
}

QString HtmlEscaped(const QString& text) {
    QString escaped;
    escaped.reserve(text.size());
    for (const char32_t c : text.toUcs4()) {
        if (c == '&')
            escaped += QStringLiteral("&amp;");
        else if (c == '<')
            escaped += QStringLiteral("&lt;");
        else if (c == '>')
            escaped += QStringLiteral("&gt;");
        else if (c == '"')
            escaped += QStringLiteral("&quot;");
        else if (c > 0xFF)
            escaped += QStringLiteral("&#") + QString::number(c) + QLatin1Char(';');
        else
            escaped += QChar(c);
    }
    return escaped;
}

// Writes lines in the export's encoding and remembers the first failure.
class LineWriter {
public:
    LineWriter(QIODevice& output, ExportFormat format) : m_output(output), m_format(format) {}

    void Line(const QString& text) {
        const QString line = text + LineEnd;
        const QByteArray bytes = m_format == ExportFormat::Html ? line.toLatin1() : line.toUtf8();
        if (m_ok && m_output.write(bytes) != bytes.size())
            m_ok = false;
    }
    bool Ok() const { return m_ok; }

private:
    QIODevice& m_output;
    ExportFormat m_format;
    bool m_ok = true;
};

QString PlainCell(const ExportRow& row, int column) {
    if (column == SizeColumn)
        return PadText(FileSizeText(row.FileSize), ColumnWidths[SizeColumn], false);
    return PadText(CellText(row, column), ColumnWidths[column], false);
}

void WritePlainText(LineWriter& out, const QList<ExportRow>& rows, const QList<int>& columns,
                    const ExportChoices& choices, Progress& progress) {
    progress.SetLabel(QStringLiteral("Exporting Game List..."));
    QString title;
    for (const int column : columns)
        title += PadText(ColumnTitle(column), ColumnWidths[column], false);
    out.Line(title);
    out.Line(QString(title.size(), QLatin1Char('-')));
    for (int i = 0; i < rows.size(); ++i) {
        QString line;
        for (const int column : columns)
            line += PlainCell(rows[i], column);
        out.Line(line);
        progress.SetValue(i + 1);
    }
    out.Line(QString());
    out.Line(QStringLiteral("File Count: ") + QString::number(rows.size()));
    out.Line(QStringLiteral("(Sorted by ") + choices.SortKey + QLatin1Char(')'));
    out.Line(QString());
    out.Line(QStringLiteral("Game List Generated By: ") + AppTitle);
    out.Line(choices.ProductLink);
}

void WriteHtml(LineWriter& out, const QList<ExportRow>& rows, const QList<int>& columns,
               const ExportChoices& choices, Progress& progress) {
    progress.SetLabel(QStringLiteral("Exporting Game List in HTML..."));
    const QString title = HtmlEscaped(AppTitle);
    out.Line(QStringLiteral("<html><head>"));
    out.Line(QStringLiteral(
        R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)"));
    out.Line(QStringLiteral(R"(<meta name="GENERATOR" content=")") + title +
             QStringLiteral(R"(">)"));
    out.Line(QStringLiteral("<title>Game List</title></head>"));
    out.Line(QStringLiteral(R"(<body bgcolor="#FFFFFF" text="#000000">)"));
    out.Line(QStringLiteral(R"(<div align="center"><center>)"));
    out.Line(QStringLiteral(R"(<table border=0 cellpadding=4 cellspacing=1 width="100%">)"));
    out.Line(QStringLiteral(R"(<tr bgcolor="#E4E4E4">)"));
    for (const int column : columns)
        out.Line(QStringLiteral(R"(<th align="left">)") + ColumnTitle(column) +
                 QStringLiteral("</th>"));
    out.Line(QStringLiteral("</tr>"));
    for (int i = 0; i < rows.size(); ++i) {
        const QString colour = i % 2 == 0 ? QStringLiteral("#F0F0F0") : QStringLiteral("#F9F9F9");
        out.Line(QStringLiteral(R"(<tr bgcolor=")") + colour + QStringLiteral(R"(">)"));
        for (const int column : columns)
            out.Line(QStringLiteral("<td>") + HtmlEscaped(HtmlCellText(rows[i], column)) +
                     QStringLiteral("</td>"));
        out.Line(QStringLiteral("</tr>"));
        progress.SetValue(i + 1);
    }
    out.Line(QStringLiteral("</table></center></div>"));
    out.Line(QStringLiteral("<p>File Count: ") + QString::number(rows.size()) +
             QStringLiteral("<br>"));
    out.Line(QStringLiteral("(Sorted by ") + HtmlEscaped(choices.SortKey) +
             QStringLiteral(")</p>"));
    out.Line(QStringLiteral("<p>Game List Generated By: ") + title + QStringLiteral("<br>"));
    const QString link = HtmlEscaped(choices.ProductLink);
    out.Line(QStringLiteral(R"(<a href=")") + link + QStringLiteral(R"(" target="_top">)") + link +
             QStringLiteral("</a></p>"));
    out.Line(QStringLiteral("</body></html>"));
}

// Selection, rows and sort: everything before the target is touched.
std::optional<QList<ExportRow>> PrepareRows(const GameList& games, const ExportChoices& choices,
                                            Progress& progress, QString& reason) {
    auto rows = FillRows(games, SelectGames(games, choices), reason);
    if (!rows)
        return std::nullopt;
    progress.SetLabel(QStringLiteral("Sorting List..."));
    SortRows(*rows, std::max(0, ColumnIndex(choices.SortKey)));
    progress.SetMaximum(int(rows->size()));
    progress.SetValue(0);
    return rows;
}

bool WriteRows(QIODevice& output, const QList<ExportRow>& rows, const ExportChoices& choices,
               Progress& progress, QString& reason) {
    LineWriter out(output, choices.Format);
    const QList<int> columns = WrittenColumns(choices);
    if (choices.Format == ExportFormat::Html)
        WriteHtml(out, rows, columns, choices, progress);
    else
        WritePlainText(out, rows, columns, choices, progress);
    if (!out.Ok())
        reason = output.errorString();
    return out.Ok();
}

void GiveReason(QString* reason, const QString& text) {
    if (reason)
        *reason = text;
}

} // namespace

QString PadText(const QString& text, int width, bool alignRight) {
    if (text.size() >= width)
        return text;
    return alignRight ? text.rightJustified(width) : text.leftJustified(width);
}

QString FileTypeName(const QString& fileName) {
    const QString name = fileName.toLower();
    for (const FileType& type : FileTypes) {
        if (name.endsWith(QLatin1String(type.Extension)))
            return QString::fromLatin1(type.Name);
    }
    return QString();
}

QString FileSizeText(qint64 bytes) {
    return PadText(QString::number(bytes / 1024), 4, true) + QLatin1Char('K');
}

bool MatchesFilePattern(const QString& fileName, const QString& pattern) {
    // Iterative wildcard match: remembers the last "*" and backtracks to it.
    qsizetype name = 0, pat = 0, star = -1, resume = 0;
    while (name < fileName.size()) {
        if (pat < pattern.size() && pattern[pat] == QLatin1Char('*')) {
            star = pat++;
            resume = name;
        } else if (pat < pattern.size() && (pattern[pat] == QLatin1Char('?') ||
                                            pattern[pat].toLower() == fileName[name].toLower())) {
            ++pat;
            ++name;
        } else if (star >= 0) {
            pat = star + 1;
            name = ++resume;
        } else {
            return false;
        }
    }
    while (pat < pattern.size() && pattern[pat] == QLatin1Char('*'))
        ++pat;
    return pat == pattern.size();
}

QList<int> SelectGames(const GameList& games, const ExportChoices& choices) {
    QList<int> kept;
    for (int i = 0; i < GameList::Capacity && !games.Records[i].Filename.isEmpty(); ++i) {
        const GameRecord& record = games.Records[i];
        if (record.Caption != RemovedCaption && KeptByMethod(record, choices))
            kept << i;
    }
    return kept;
}

bool WriteGameListExport(const GameList& games, const ExportChoices& choices, const QString& path,
                         Progress& progress, QString* reason) {
    QString why;
    const auto rows = PrepareRows(games, choices, progress, why);
    if (!rows) {
        GiveReason(reason, why);
        return false;
    }
    // Written beside the old file and renamed over it: a kill or a full disk leaves
    // the old file whole.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        GiveReason(reason, file.errorString());
        return false;
    }
    if (!WriteRows(file, *rows, choices, progress, why)) {
        GiveReason(reason, why.isEmpty() ? file.errorString() : why);
        file.cancelWriting();
        return false;
    }
    return CommitWhole(file, reason);
}

bool WriteGameListExport(const GameList& games, const ExportChoices& choices, QIODevice& output,
                         Progress& progress, QString* reason) {
    QString why;
    const auto rows = PrepareRows(games, choices, progress, why);
    const bool written = rows && WriteRows(output, *rows, choices, progress, why);
    if (!written)
        GiveReason(reason, why);
    return written;
}
