#include "config/StoreNames.h"

#include "base/StringHelpers.h"

#include <algorithm>

namespace {

const char HexUpper[] = "0123456789ABCDEF";

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

} // namespace

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
