#include "base/Progress.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "cli/CliCommands.h"
#include "cli/CliSupport.h"
#include "export/ExportPrefs.h"
#include "export/ExportWriter.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace {

// A column key as typed: any letter case, "-" or "_" for the blank ("file-size"),
// or the column's title in the table ("size", "type").
int TypedColumn(QString key) {
    key.replace(QLatin1Char('-'), QLatin1Char(' ')).replace(QLatin1Char('_'), QLatin1Char(' '));
    if (key.compare(QLatin1String("size"), Qt::CaseInsensitive) == 0)
        return ColumnIndex(QStringLiteral("File Size"));
    if (key.compare(QLatin1String("type"), Qt::CaseInsensitive) == 0)
        return ColumnIndex(QStringLiteral("File Type"));
    return ColumnIndex(key);
}

QString KeyList() {
    return ColumnKeys.join(QStringLiteral(", "));
}

// Takes "--method entire|folder PATH|group NAME|pattern GLOB" into choices; an error
// text when it is malformed or names what the catalogue does not have.
QString TakeMethod(QStringList& arguments, const AppState& state, ExportChoices& choices) {
    const qsizetype at = arguments.indexOf(QStringLiteral("--method"));
    if (at < 0)
        return QString();
    const QString method = arguments.value(at + 1);
    if (method == QLatin1String("entire")) {
        choices.Method = ExportMethod::EntireList;
        arguments.remove(at, 2);
        return QString();
    }
    const QStringList methods{QStringLiteral("folder"), QStringLiteral("group"),
                              QStringLiteral("pattern")};
    if (!methods.contains(method))
        return QStringLiteral("--method takes entire, folder PATH, group NAME or pattern GLOB");
    if (at + 2 >= arguments.size())
        return QStringLiteral("--method ") + method + QStringLiteral(" needs a value");
    QString value = arguments.at(at + 2);
    arguments.remove(at, 3);
    if (method == QLatin1String("folder")) {
        choices.Method = ExportMethod::GameFolder;
        value = AddBackslash(QFileInfo(value).absoluteFilePath());
        const QStringList folders = ExportFolderEntries(state.GameFolders);
        if (!folders.contains(value, Qt::CaseInsensitive))
            return QStringLiteral("there is no game folder ") + value;
    } else if (method == QLatin1String("group")) {
        choices.Method = ExportMethod::Group;
        if (!ExportGroupEntries(state.Groups).contains(value, Qt::CaseInsensitive))
            return QStringLiteral("there is no group named ") + value;
    } else {
        choices.Method = ExportMethod::FilePattern;
    }
    choices.Filter = value;
    return QString();
}

// "--columns KEY,KEY,...": the keys named are written in that order, the rest not.
QString TakeColumns(QStringList& arguments, ExportChoices& choices) {
    QString text;
    if (!TakeOption(arguments, QStringLiteral("--columns"), text))
        return QStringLiteral("--columns needs KEY,KEY,... (") + KeyList() + QLatin1Char(')');
    if (text.isNull())
        return QString();
    QList<int> order;
    for (const QString& key : text.split(QLatin1Char(','))) {
        const int column = TypedColumn(key.trimmed());
        if (column < 0)
            return QStringLiteral("unknown column: ") + key + QStringLiteral(" (") + KeyList() +
                   QLatin1Char(')');
        if (order.contains(column))
            return QStringLiteral("column named twice: ") + key;
        order << column;
    }
    for (int column = 0; column < ColumnCount; ++column) {
        if (!order.contains(column))
            order << column;
    }
    const qsizetype written = text.count(QLatin1Char(',')) + 1;
    for (int i = 0; i < ColumnCount; ++i)
        choices.WriteOrder[i] = {ColumnKeys[order[i]], i < written};
    return QString();
}

QString TakeSortAndFormat(QStringList& arguments, ExportChoices& choices) {
    QString sort, format;
    if (!TakeOption(arguments, QStringLiteral("--sort"), sort))
        return QStringLiteral("--sort needs a KEY (") + KeyList() + QLatin1Char(')');
    if (!sort.isNull()) {
        const int column = TypedColumn(sort);
        if (column < 0)
            return QStringLiteral("unknown sort key: ") + sort + QStringLiteral(" (") + KeyList() +
                   QLatin1Char(')');
        choices.SortKey = ColumnKeys[column];
    }
    if (!TakeOption(arguments, QStringLiteral("--format"), format))
        return QStringLiteral("--format needs text or html");
    if (format == QLatin1String("text"))
        choices.Format = ExportFormat::PlainText;
    else if (format == QLatin1String("html"))
        choices.Format = ExportFormat::Html;
    else if (!format.isNull())
        return QStringLiteral("--format takes text or html");
    return QString();
}

} // namespace

int RunExport(CliContext& context, const QStringList& arguments) {
    AppState& state = context.State;
    LoadCatalogue(context);
    ExportChoices choices = ChoicesFromPrefs(LoadExportPrefs(state.Store), state);

    QStringList rest = arguments;
    const bool force = TakeFlag(rest, QStringLiteral("--force"));
    QString problem = TakeColumns(rest, choices);
    if (problem.isEmpty())
        problem = TakeSortAndFormat(rest, choices);
    if (problem.isEmpty())
        problem = TakeMethod(rest, state, choices);
    const auto option = std::find_if(rest.cbegin(), rest.cend(), [](const QString& argument) {
        return argument.startsWith(QLatin1String("--"));
    });
    if (problem.isEmpty() && option != rest.cend())
        problem = QStringLiteral("unknown option: ") + *option;
    if (problem.isEmpty() && rest.size() != 1)
        problem = rest.isEmpty()
                      ? QStringLiteral("export needs an output FILE, or - for standard output")
                      : QStringLiteral("unexpected argument: ") + rest.at(1);
    if (!problem.isEmpty())
        return UsageError(context, problem);

    const QString target = rest.first();
    Progress noProgress;
    QString reason;
    bool written = false;
    if (target == QLatin1String("-")) {
        context.Out.flush();
        QFile output;
        written = output.open(stdout, QIODevice::WriteOnly) &&
                  WriteGameListExport(state.Games, choices, output, noProgress, &reason);
    } else {
        if (QFileInfo::exists(target) && !force) {
            context.Err << "lumbra-cli: " << target
                        << " already exists; add --force to replace it.\n";
            return ExitFailed;
        }
        written = WriteGameListExport(state.Games, choices, target, noProgress, &reason);
    }
    if (!written) {
        context.Err << "lumbra-cli: Unknown Error, Export Failed! (" << reason << ")\n";
        return ExitFailed;
    }
    if (target != QLatin1String("-"))
        context.Out << "Game List Exported!\n";
    return ExitOk;
}
