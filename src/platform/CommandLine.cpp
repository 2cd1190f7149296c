#include "platform/CommandLine.h"

#include "platform/PathResolver.h"

#include <QFileInfo>
#include <algorithm>

namespace {

const QChar Quote = QLatin1Char('"');
const QChar Backslash = QLatin1Char('\\');

bool IsBlank(QChar c) {
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// The existing file that path names, as an absolute path (so that starting it never
// searches PATH), or an empty text.
QString ExistingFile(PathResolver& resolver, const QString& path) {
    const QString resolved = resolver.Resolve(path);
    if (resolved.isEmpty())
        return QString();
    const QFileInfo info(resolved);
    return info.isFile() ? info.absoluteFilePath() : QString();
}

} // namespace

ParsedCommand ParseCommandLine(const QString& commandLine) {
    qsizetype start = 0;
    while (start < commandLine.size() && IsBlank(commandLine[start]))
        ++start;
    const QString text = commandLine.mid(start);

    PathResolver resolver;
    QString program;
    qsizetype rest = text.size();
    if (text.startsWith(Quote)) {
        const qsizetype closing = text.indexOf(Quote, 1);
        const qsizetype end = closing < 0 ? text.size() : closing;
        program = ExistingFile(resolver, text.mid(1, end - 1));
        rest = closing < 0 ? text.size() : closing + 1;
    } else {
        for (qsizetype end = 1; end <= text.size() && program.isEmpty(); ++end) {
            if (end < text.size() && !IsBlank(text[end]))
                continue;
            if (IsBlank(text[end - 1]))
                continue; // already tried without its trailing blanks
            program = ExistingFile(resolver, text.left(end));
            rest = end;
        }
    }
    if (program.isEmpty())
        return {};
    return CommandForFile(program, SplitArguments(text.mid(rest)));
}

QStringList SplitArguments(const QString& text) {
    QStringList arguments;
    QString current;
    bool inArgument = false;
    bool quoted = false;
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        if (IsBlank(c) && !quoted) {
            if (inArgument)
                arguments.append(current);
            current.clear();
            inArgument = false;
            ++i;
            continue;
        }
        inArgument = true;
        if (c == Backslash) {
            qsizetype count = 0;
            while (i < text.size() && text[i] == Backslash) {
                ++count;
                ++i;
            }
            if (i < text.size() && text[i] == Quote) {
                current += QString(count / 2, Backslash);
                if (count % 2 == 1) {
                    current += Quote;
                    ++i;
                }
            } else {
                current += QString(count, Backslash);
            }
        } else if (c == Quote) {
            if (quoted && i + 1 < text.size() && text[i + 1] == Quote) {
                current += Quote;
                i += 2;
            } else {
                quoted = !quoted;
                ++i;
            }
        } else {
            current += c;
            ++i;
        }
    }
    if (inArgument)
        arguments.append(current);
    return arguments;
}

QString QuoteCommandLineArgument(const QString& argument) {
    const bool plain =
        !argument.isEmpty() && std::none_of(argument.begin(), argument.end(),
                                            [](QChar c) { return IsBlank(c) || c == Quote; });
    if (plain)
        return argument;
    QString quoted(Quote);
    qsizetype backslashes = 0;
    for (const QChar c : argument) {
        if (c == Backslash) {
            ++backslashes;
            continue;
        }
        // Backslashes only escape when a quote follows them.
        quoted += QString(c == Quote ? backslashes * 2 + 1 : backslashes, Backslash);
        quoted += c;
        backslashes = 0;
    }
    quoted += QString(backslashes * 2, Backslash);
    quoted += Quote;
    return quoted;
}

ParsedCommand CommandForFile(const QString& file, const QStringList& arguments) {
#ifndef Q_OS_WIN
    if (!QFileInfo(file).isExecutable())
        return {QStringLiteral("/bin/sh"), QStringList{file} + arguments};
#endif
    return {file, arguments};
}
