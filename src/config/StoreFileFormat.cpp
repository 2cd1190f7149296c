#include "config/StoreFileFormat.h"

#include <QByteArrayView>
#include <algorithm>
#include <array>
#include <utility>

// The rules are QSettings' own (Qt 6): the tests compare this file's bytes with
// the bytes QSettings writes for the same values, and read each other's files.
namespace {

const char HexUpper[] = "0123456789ABCDEF";

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool IsHexDigit(char16_t c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// ---- names ----

void AppendEscapedName(const QString& name, QByteArray& out) {
    const qsizetype start = out.size();
    out.resize(start + name.size() * 6); // "%UXXXX" at most for each character
    char* write = out.data() + start;
    for (const QChar qc : name) {
        const char16_t c = qc.unicode();
        if (c == '/') {
            *write++ = '\\';
        } else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                   c == '_' || c == '-' || c == '.') {
            *write++ = static_cast<char>(c);
        } else if (c <= 0xFF) {
            *write++ = '%';
            *write++ = HexUpper[c >> 4];
            *write++ = HexUpper[c & 0xF];
        } else {
            *write++ = '%';
            *write++ = 'U';
            for (int shift = 12; shift >= 0; shift -= 4)
                *write++ = HexUpper[(c >> shift) & 0xF];
        }
    }
    out.truncate(write - out.constData());
}

// A name of ASCII bytes, as the file writes every name: decoded in one pass.
QString UnescapedAsciiName(QByteArrayView bytes) {
    QString name(bytes.size(), Qt::Uninitialized);
    QChar* write = name.data();
    const qsizetype size = bytes.size();
    for (qsizetype i = 0; i < size;) {
        const char c = bytes.at(i);
        if (c == '\\') {
            *write++ = QLatin1Char('/');
            ++i;
            continue;
        }
        if (c == '%' && i + 1 < size) {
            const bool wide = bytes.at(i + 1) == 'U';
            const qsizetype first = i + (wide ? 2 : 1);
            const int digits = wide ? 4 : 2;
            int code = first + digits <= size ? 0 : -1;
            for (qsizetype d = first; code >= 0 && d < first + digits; ++d) {
                const int value = HexValue(bytes.at(d));
                code = value < 0 ? -1 : code * 16 + value;
            }
            if (code >= 0) {
                *write++ = QChar(static_cast<char16_t>(code));
                i = first + digits;
                continue;
            }
        }
        *write++ = QLatin1Char(c);
        ++i;
    }
    name.truncate(write - name.constData());
    return name;
}

QString UnescapedName(QByteArrayView bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; }))
        return UnescapedAsciiName(bytes);
    const QString decoded = QString::fromUtf8(bytes);
    QString name;
    name.reserve(decoded.size());
    qsizetype i = 0;
    while (i < decoded.size()) {
        const char16_t c = decoded.at(i).unicode();
        if (c == '\\') {
            name += QLatin1Char('/');
            ++i;
            continue;
        }
        if (c != '%' || i == decoded.size() - 1) {
            name += QChar(c);
            ++i;
            continue;
        }
        const bool wide = decoded.at(i + 1) == QLatin1Char('U');
        const qsizetype first = i + (wide ? 2 : 1);
        const int digits = wide ? 4 : 2;
        bool ok = first + digits <= decoded.size();
        const ushort code = ok ? QStringView(decoded).sliced(first, digits).toUShort(&ok, 16) : 0;
        if (!ok) {
            name += QLatin1Char('%');
            ++i;
            continue;
        }
        name += QChar(code);
        i = first + digits;
    }
    return name;
}

// ---- values ----

// UTF-8 as QSettings' one encoder per value makes it: a surrogate waits for the
// next character that goes through the encoder (escapes do not); a high one
// followed by a low one makes a pair, any other waiting one becomes U+FFFD, and
// one still waiting at the end is dropped.
struct Utf8Writer {
    QByteArray& Out;
    char16_t Waiting = 0;

    void Write(char16_t c) {
        if (Waiting != 0) {
            const char16_t first = std::exchange(Waiting, 0);
            if (QChar::isHighSurrogate(first) && QChar::isLowSurrogate(c)) {
                const char32_t code = QChar::surrogateToUcs4(first, c);
                Out += static_cast<char>(0xF0 | (code >> 18));
                Out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
                Out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
                Out += static_cast<char>(0x80 | (code & 0x3F));
                return;
            }
            Out += "\xEF\xBF\xBD";
        }
        if (QChar::isSurrogate(c)) {
            Waiting = c;
        } else if (c < 0x80) {
            Out += static_cast<char>(c);
        } else if (c < 0x800) {
            Out += static_cast<char>(0xC0 | (c >> 6));
            Out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            Out += static_cast<char>(0xE0 | (c >> 12));
            Out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            Out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
};

// Printable ASCII without quote or backslash: copied as it is, quoted where needed.
bool AppendPlainText(const QString& text, QByteArray& out) {
    bool needsQuotes = false;
    for (const QChar qc : text) {
        const char16_t c = qc.unicode();
        if (c < 0x20 || c > 0x7E || c == '"' || c == '\\')
            return false;
        needsQuotes = needsQuotes || c == ';' || c == ',' || c == '=';
    }
    needsQuotes =
        needsQuotes ||
        (!text.isEmpty() && (text.front() == QLatin1Char(' ') || text.back() == QLatin1Char(' ')));
    const qsizetype start = out.size();
    out.resize(start + text.size() + (needsQuotes ? 2 : 0));
    char* write = out.data() + start;
    if (needsQuotes)
        *write++ = '"';
    for (const QChar qc : text)
        *write++ = static_cast<char>(qc.unicode());
    if (needsQuotes)
        *write = '"';
    return true;
}

void AppendEscapedText(const QString& text, QByteArray& out) {
    if (AppendPlainText(text, out))
        return;
    const qsizetype start = out.size();
    const bool raw = text.startsWith(QLatin1String("@ByteArray(")) ||
                     text.startsWith(QLatin1String("@Variant(")) ||
                     text.startsWith(QLatin1String("@DateTime("));
    bool needsQuotes = false;
    bool escapeNextIfDigit = false;
    Utf8Writer toUtf8{out};
    for (const QChar qc : text) {
        const char16_t c = qc.unicode();
        if (c == ';' || c == ',' || c == '=')
            needsQuotes = true;
        if (escapeNextIfDigit && IsHexDigit(c)) {
            out += "\\x" + QByteArray::number(c, 16);
            continue;
        }
        escapeNextIfDigit = false;
        switch (c) {
        case '\0':
            out += "\\0";
            escapeNextIfDigit = true;
            break;
        case '\a':
            out += "\\a";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\v':
            out += "\\v";
            break;
        case '"':
        case '\\':
            out += '\\';
            out += static_cast<char>(c);
            break;
        default:
            if (c <= 0x1F || (c >= 0x7F && raw)) {
                out += "\\x" + QByteArray::number(c, 16);
                escapeNextIfDigit = true;
            } else if (raw) {
                out += static_cast<char>(c);
            } else {
                toUtf8.Write(c);
            }
        }
    }
    if (needsQuotes ||
        (start < out.size() && (out.at(start) == ' ' || out.at(out.size() - 1) == ' '))) {
        out.insert(start, '"');
        out += '"';
    }
}

void AppendEscapedValue(const StoreValue& value, QByteArray& out) {
    if (!value.IsList) {
        AppendEscapedText(value.Text, out);
        return;
    }
    if (value.List.isEmpty())
        out += "@Invalid()";
    for (qsizetype i = 0; i < value.List.size(); ++i) {
        if (i > 0)
            out += ", ";
        AppendEscapedText(value.List.at(i), out);
    }
}

void ChopTrailingBlanks(QString& text, qsizetype limit) {
    qsizetype n = text.size();
    while (n > limit && (text.at(n - 1) == QLatin1Char(' ') || text.at(n - 1) == QLatin1Char('\t')))
        --n;
    text.truncate(n);
}

int OctalValue(char c) {
    return c >= '0' && c <= '7' ? c - '0' : -1;
}

// A value's bytes as QSettings reads them: escapes resolved, quotes removed,
// blanks around unquoted parts dropped, and unquoted commas splitting a list.
// The common value: no escape, no quote inside and no list, quoted or not.
bool PlainValue(QByteArrayView bytes, QString& text) {
    qsizetype first = 0;
    qsizetype end = bytes.size();
    while (first < end && (bytes.at(first) == ' ' || bytes.at(first) == '\t'))
        ++first;
    while (end > first && (bytes.at(end - 1) == ' ' || bytes.at(end - 1) == '\t'))
        --end;
    const bool quoted = end - first >= 2 && bytes.at(first) == '"' && bytes.at(end - 1) == '"';
    if (quoted) {
        ++first;
        --end;
    }
    for (qsizetype i = first; i < end; ++i) {
        const char c = bytes.at(i);
        if (c == '\\' || c == '"' || (c == ',' && !quoted))
            return false;
    }
    text = QString::fromUtf8(bytes.sliced(first, end - first));
    return true;
}

StoreValue UnescapedValue(QByteArrayView bytes) {
    if (StoreValue plain; PlainValue(bytes, plain.Text))
        return plain;
    static constexpr char Escapes[][2] = {{'a', '\a'}, {'b', '\b'},  {'f', '\f'}, {'n', '\n'},
                                          {'r', '\r'}, {'t', '\t'},  {'v', '\v'}, {'"', '"'},
                                          {'?', '?'},  {'\'', '\''}, {'\\', '\\'}};
    StoreValue value;
    QString& text = value.Text;
    bool inQuotes = false;
    bool currentIsQuoted = false;
    qsizetype i = 0;
    const qsizetype size = bytes.size();
    const auto skipBlanks = [&] {
        while (i < size && (bytes.at(i) == ' ' || bytes.at(i) == '\t'))
            ++i;
    };
    skipBlanks();
    qsizetype chopLimit = 0;
    while (i < size) {
        const char c = bytes.at(i);
        if (c == '\\') {
            ++i;
            if (i >= size)
                break;
            const char e = bytes.at(i++);
            const auto known = std::find_if(std::begin(Escapes), std::end(Escapes),
                                            [e](const char* pair) { return pair[0] == e; });
            if (known != std::end(Escapes)) {
                text += QLatin1Char((*known)[1]);
            } else if (e == 'x' || OctalValue(e) >= 0) {
                // "\x" without a hex digit after it stands for nothing.
                const bool hex = e == 'x';
                const auto digit = [hex](char d) { return hex ? HexValue(d) : OctalValue(d); };
                if (!hex || (i < size && HexValue(bytes.at(i)) >= 0)) {
                    char16_t code = hex ? 0 : static_cast<char16_t>(OctalValue(e));
                    for (; i < size && digit(bytes.at(i)) >= 0; ++i)
                        code = static_cast<char16_t>(code * (hex ? 16 : 8) + digit(bytes.at(i)));
                    text += QChar(code);
                }
            } else if (e == '\n' || e == '\r') {
                if (i < size && (bytes.at(i) == '\n' || bytes.at(i) == '\r') && bytes.at(i) != e)
                    ++i;
            }
            chopLimit = text.size();
        } else if (c == '"') {
            ++i;
            currentIsQuoted = true;
            inQuotes = !inQuotes;
            if (!inQuotes) {
                skipBlanks();
                chopLimit = text.size();
            }
        } else if (c == ',' && !inQuotes) {
            if (!currentIsQuoted)
                ChopTrailingBlanks(text, chopLimit);
            if (!value.IsList) {
                value.IsList = true;
                value.List.clear();
            }
            value.List.append(text);
            text.clear();
            currentIsQuoted = false;
            ++i;
            skipBlanks();
            chopLimit = 0;
        } else {
            qsizetype j = i + 1;
            while (j < size && bytes.at(j) != '\\' && bytes.at(j) != '"' &&
                   (bytes.at(j) != ',' || inQuotes))
                ++j;
            text += QString::fromUtf8(bytes.sliced(i, j - i));
            i = j;
        }
    }
    if (!currentIsQuoted)
        ChopTrailingBlanks(text, chopLimit);
    if (value.IsList) {
        value.List.append(text);
        value.Text.clear();
    }
    return value;
}

// ---- lines ----

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

StoreValue ValueOfText(const QString& text) {
    StoreValue value;
    if (text.contains(QChar(u'\0')))
        value.Text = QStringLiteral("@String(") + text + QLatin1Char(')');
    else if (text.startsWith(QLatin1Char('@')))
        value.Text = QLatin1Char('@') + text;
    else
        value.Text = text;
    return value;
}

bool IsAbsentValue(const StoreValue& value) {
    return !value.IsList && value.Text == QLatin1String("@Invalid()");
}

QString TextOfValue(const StoreValue& value) {
    if (value.IsList)
        return value.List.size() == 1 ? value.List.first() : QString();
    const QString& text = value.Text;
    if (!text.startsWith(QLatin1Char('@')))
        return text;
    if (text.startsWith(QLatin1String("@@")))
        return text.sliced(1);
    if (!text.endsWith(QLatin1Char(')')))
        return text;
    if (text.startsWith(QLatin1String("@String(")))
        return text.sliced(8).chopped(1);
    if (text.startsWith(QLatin1String("@ByteArray(")))
        return QString::fromUtf8(text.sliced(11).chopped(1).toLatin1());
    // Typed values that Lumbra never writes ("@Rect(...)", "@Variant(...)") are no text.
    static const char* const typed[] = {"@Invalid(", "@Rect(",    "@Size(",
                                        "@Point(",   "@Variant(", "@DateTime("};
    for (const char* prefix : typed) {
        if (text.startsWith(QLatin1String(prefix)))
            return QString();
    }
    return text;
}
