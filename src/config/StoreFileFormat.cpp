#include "config/StoreFileFormat.h"

#include "config/StoreNames.h"
#include "config/StoreValues.h"

#include <QByteArrayView>
#include <algorithm>
#include <array>
#include <utility>

// The rules are QSettings' own (Qt 6): the tests compare this file's bytes with
// the bytes QSettings writes for the same values, and read each other's files.
namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// The next logical line from pos: leading blanks skipped, comments (";" at a
// line's start) passed over, a ";" outside quotes ending it, line breaks inside
// quotes or after a backslash kept. False at the end of the text.
bool NextLine(QByteArrayView data, qsizetype& pos, QByteArrayView& line, qsizetype& equals) {
    static const auto special = [] {
        std::array<bool, 256> table{};
        for (const unsigned char c : {'=', '\n', '\r', '\\', '"', ';'})
            table[c] = true;
        return table;
    }();
    const qsizetype size = data.size();
    const char* const bytes = data.data();
    bool inQuotes = false;
    equals = -1;
    qsizetype start = pos;
    while (start < size && IsSpace(bytes[start]))
        ++start;
    qsizetype i = start;
    while (i < size) {
        while (i < size && !special[static_cast<unsigned char>(bytes[i])])
            ++i;
        if (i == size)
            break;
        const char c = bytes[i++];
        if (c == '=') {
            if (!inQuotes && equals < 0)
                equals = i - 1;
        } else if (c == '\n' || c == '\r') {
            if (i == start + 1) {
                ++start;
            } else if (!inQuotes) {
                --i;
                break;
            }
        } else if (c == '\\') {
            if (i < size) {
                const char next = bytes[i++];
                if (i < size) {
                    const char after = bytes[i];
                    if ((next == '\n' && after == '\r') || (next == '\r' && after == '\n'))
                        ++i;
                }
            }
        } else if (c == '"') {
            inQuotes = !inQuotes;
        } else if (c == ';') {
            if (i == start + 1) {
                while (i < size && bytes[i] != '\n' && bytes[i] != '\r')
                    ++i;
                while (i < size && IsSpace(bytes[i]))
                    ++i;
                start = i;
            } else if (!inQuotes) {
                --i;
                break;
            }
        }
    }
    pos = i;
    line = data.sliced(start, i - start);
    if (equals >= 0)
        equals -= start;
    return !line.isEmpty();
}

// A full name ("section/key", or a key of the General part) as a section and a key.
// Like QSettings, a name read from the file is kept as it is, empty parts included.
void Insert(StoreContent& content, const QString& fullName, StoreValue value) {
    const qsizetype slash = fullName.indexOf(QLatin1Char('/'));
    if (slash < 0)
        content[QString()].insert(fullName, std::move(value));
    else
        content[fullName.left(slash)].insert(fullName.mid(slash + 1), std::move(value));
}

} // namespace

StoreContent ParseStoreText(const QByteArray& text) {
    StoreContent content;
    QByteArrayView data(text);
    if (data.startsWith("\xEF\xBB\xBF"))
        data = data.sliced(3);
    QString section;     // with its "/", or empty for the General part
    QString sectionName; // the section without "/", when it holds no further "/"
    qsizetype pos = 0;
    QByteArrayView line;
    qsizetype equals = -1;
    while (NextLine(data, pos, line, equals)) {
        if (line.at(0) == '[') {
            const qsizetype close = line.indexOf(']');
            QByteArray name =
                (close < 0 ? line.sliced(1) : line.sliced(1, close - 1)).toByteArray();
            name = name.trimmed();
            if (name.compare("general", Qt::CaseInsensitive) == 0) {
                section.clear();
            } else {
                section = name.compare("%general", Qt::CaseInsensitive) == 0
                              ? QString::fromLatin1(name.sliced(1))
                              : UnescapedName(name);
                section += QLatin1Char('/');
            }
            sectionName = section.count(QLatin1Char('/')) == 1 ? section.chopped(1) : QString();
            continue;
        }
        if (equals < 0)
            continue;
        QByteArrayView key = line.first(equals);
        while (!key.isEmpty() && IsSpace(key.back()))
            key.chop(1);
        const QString name = UnescapedName(key);
        if (!sectionName.isEmpty() && !name.isEmpty() && !name.contains(QLatin1Char('/')))
            content[sectionName].insert(name, UnescapedValue(line.sliced(equals + 1)));
        else
            Insert(content, section + name, UnescapedValue(line.sliced(equals + 1)));
    }
    return content;
}

QByteArray StoreText(const StoreContent& content) {
    QStringList sections;
    for (auto it = content.cbegin(); it != content.cend(); ++it) {
        if (!it->isEmpty())
            sections.append(it.key());
    }
    std::sort(sections.begin(), sections.end());
    QByteArray text;
    for (const QString& name : std::as_const(sections)) {
        if (!text.isEmpty())
            text += '\n';
        QByteArray header;
        AppendEscapedName(name, header);
        if (header.isEmpty())
            header = "General";
        else if (header.compare("general", Qt::CaseInsensitive) == 0)
            header = "%General";
        text += '[' + header + "]\n";
        const StoreSection& section = content.value(name);
        QStringList keys = section.keys();
        std::sort(keys.begin(), keys.end());
        for (const QString& key : std::as_const(keys)) {
            AppendEscapedName(key, text);
            text += '=';
            AppendEscapedValue(section.value(key), text);
            text += '\n';
        }
    }
    return text;
}
