#include "base/StringHelpers.h"

#include <QDir>

int InStrLast(const QString& text, const QString& search) {
    if (search.isEmpty())
        return 0;
    // From the last character, not from size(): there Qt 6.4 compares a one-character
    // search with the terminating zero, so a "\0" search was found past the end.
    return static_cast<int>(text.lastIndexOf(search, -1)) + 1;
}

int InStrLastSeparator(const QString& path) {
    return std::max(InStrLast(path, QStringLiteral("\\")), InStrLast(path, QStringLiteral("/")));
}

bool EndsWithSeparator(const QString& path) {
    return path.endsWith(QLatin1Char('\\')) || path.endsWith(QLatin1Char('/'));
}

QString TrimBlanks(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

QString GetField(const QString& record, int fieldNumber, const QString& delimiter) {
    if (delimiter.isEmpty() || fieldNumber < 1)
        return QString();
    const QString trimmed = TrimBlanks(record);
    const QChar separator = delimiter.at(0);
    qsizetype start = 0;
    for (int field = 1;; ++field) {
        const qsizetype next = trimmed.indexOf(separator, start);
        const qsizetype end = next < 0 ? trimmed.size() : next;
        if (field == fieldNumber)
            return trimmed.mid(start, end - start);
        if (next < 0)
            return QString();
        start = next + 1;
    }
}

QString LowerCase(const QString& text) {
    const char16_t* const begin = reinterpret_cast<const char16_t*>(text.constData());
    const char16_t* const end = begin + text.size();
    bool upper = false;
    for (const char16_t* c = begin; c != end; ++c) {
        if (*c >= 0x80)
            return text.toLower();
        upper = upper || (*c >= 'A' && *c <= 'Z');
    }
    return upper ? AsciiLowerCase(text) : text;
}

QString AsciiLowerCase(QStringView text) {
    QString lower(text.size(), Qt::Uninitialized);
    char16_t* write = reinterpret_cast<char16_t*>(lower.data());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        *write++ = (unit >= 'A' && unit <= 'Z') ? static_cast<char16_t>(unit + ('a' - 'A')) : unit;
    }
    return lower;
}

QStringList GetFields(const QString& record, const QString& delimiter) {
    if (delimiter.isEmpty())
        return {};
    const QString trimmed = TrimBlanks(record);
    const QChar separator = delimiter.at(0);
    QStringList fields;
    fields.reserve(trimmed.count(separator) + 1);
    qsizetype start = 0;
    for (qsizetype next; (next = trimmed.indexOf(separator, start)) >= 0; start = next + 1)
        fields.append(trimmed.sliced(start, next - start));
    fields.append(trimmed.sliced(start));
    return fields;
}

QString AddBackslash(const QString& path) {
    const QString trimmed = TrimBlanks(path);
    if (trimmed.isEmpty() || EndsWithSeparator(trimmed))
        return trimmed;
    return trimmed + QDir::separator();
}

QString GetFileName(const QString& path) {
    const int position = InStrLastSeparator(path);
    if (position == 0 || position == path.size())
        return path;
    return path.mid(position);
}

QString ChangeExtension(const QString& fileName, const QString& extension) {
    const QString name = fileName.isEmpty() ? QStringLiteral("New File") : fileName;
    const int dot = InStrLast(name, QStringLiteral("."));
    if (dot == 0)
        return name + QLatin1Char('.') + extension;
    return name.left(dot) + extension;
}

QString ReplaceControlCharacters(QString text) {
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control)
            c = QChar::ReplacementCharacter;
    }
    return text;
}
