#include "config/StoreValues.h"

#include "base/StringHelpers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

bool IsHexDigit(char16_t c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

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

} // namespace

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

namespace {

void ChopTrailingBlanks(QString& text, qsizetype limit) {
    qsizetype n = text.size();
    while (n > limit && (text.at(n - 1) == QLatin1Char(' ') || text.at(n - 1) == QLatin1Char('\t')))
        --n;
    text.truncate(n);
}

int OctalValue(char c) {
    return c >= '0' && c <= '7' ? c - '0' : -1;
}

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

} // namespace

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
