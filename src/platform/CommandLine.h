#pragma once

#include <QString>
#include <QStringList>

// A command line taken apart: the program to start and its arguments, each one argv
// entry. Program is empty when the command line names no existing file.
struct ParsedCommand {
    QString Program;
    QStringList Arguments;
};

// Takes a command line apart the way Windows does when it gets no separate program
// name. A program in double quotes runs to the closing quote. Otherwise the
// candidates are the prefixes that end before each blank, then the whole text,
// shortest first; each is resolved without regard to letter case (relative ones from
// the current folder) and the first existing file is the program. The rest is split
// by SplitArguments, and the file becomes a command by CommandForFile.
ParsedCommand ParseCommandLine(const QString& commandLine);

// Splits arguments at blanks (spaces and tabs) by the Microsoft C runtime's rules:
// double quotes group and are removed, "" inside quotes is one quote, and
// backslashes are literal except before a quote: 2n of them then give n and the
// quote groups, 2n+1 give n and a literal quote.
QStringList SplitArguments(const QString& text);

// The argument written so that SplitArguments gives it back unchanged.
QString QuoteCommandLineArgument(const QString& argument);

// How an existing file is started: directly when it has execute permission,
// otherwise by /bin/sh with the file and the arguments as separate entries, so that
// no text is ever read by a shell as a command.
ParsedCommand CommandForFile(const QString& file, const QStringList& arguments);
