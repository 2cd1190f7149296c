#include "catalogue/NaturalOrder.h"

#include "catalogue/FoldedText.h"

#include <algorithm>

namespace {

bool IsDigit(QChar c) {
    return c.isDigit();
}

// QChar::digitValue without its call for the digits 0 to 9.
int DigitValue(QChar c) {
    return c.unicode() <= u'9' ? c.unicode() - u'0' : c.digitValue();
}

// The end of the run of digits that starts at from.
qsizetype DigitsEnd(QStringView text, qsizetype from) {
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

// Compares the numbers of two runs of digits; leading zeros do not count.
int CompareNumbers(QStringView a, QStringView b) {
    while (a.size() > 1 && DigitValue(a.front()) == 0)
        a = a.mid(1);
    while (b.size() > 1 && DigitValue(b.front()) == 0)
        b = b.mid(1);
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    for (qsizetype i = 0; i < a.size(); ++i) {
        const int difference = DigitValue(a[i]) - DigitValue(b[i]);
        if (difference != 0)
            return difference;
    }
    return 0;
}

} // namespace

int NaturalCompareFolded(QStringView a, QStringView b) {
    // A common beginning compares equal; the scan starts at its last run of digits,
    // which may go on differently in each text.
    const qsizetype shorter = std::min(a.size(), b.size());
    qsizetype same = 0;
    while (same < shorter && a[same] == b[same])
        ++same;
    while (same > 0 && IsDigit(a[same - 1]))
        --same;
    qsizetype i = same;
    qsizetype j = same;
    while (i < a.size() && j < b.size()) {
        if (IsDigit(a[i]) && IsDigit(b[j])) {
            const qsizetype endA = DigitsEnd(a, i);
            const qsizetype endB = DigitsEnd(b, j);
            if (const int order = CompareNumbers(a.sliced(i, endA - i), b.sliced(j, endB - j)))
                return order;
            i = endA;
            j = endB;
            continue;
        }
        if (a[i] != b[j])
            return a[i].unicode() < b[j].unicode() ? -1 : 1;
        ++i;
        ++j;
    }
    if (i < a.size())
        return 1;
    return j < b.size() ? -1 : 0;
}

int NaturalCompare(QStringView a, QStringView b) {
    if (const int order = NaturalCompareFolded(FoldedText(a), FoldedText(b)))
        return order;
    // Texts that differ only in case, accents or leading zeros keep one fixed order.
    return a.compare(b, Qt::CaseSensitive);
}

QString NaturalSortKey(QStringView folded) {
    // A run of n digits takes at most n + 2 units, and never more than twice n.
    QString key(folded.size() * 2, Qt::Uninitialized);
    char16_t* out = reinterpret_cast<char16_t*>(key.data());
    const char16_t* in = folded.utf16();
    const char16_t* const end = in + folded.size();
    while (in != end) {
        if (!IsDigit(QChar(*in))) {
            *out++ = *in++;
            continue;
        }
        const char16_t* runEnd = in;
        for (; runEnd != end && IsDigit(QChar(*runEnd)); ++runEnd) {
            if (*runEnd > u'9')
                return QString();
        }
        while (runEnd - in > 1 && *in == u'0')
            ++in;
        // The length stands where the first digit did: against any other character
        // it compares as a digit would, and a longer number comes later.
        const qsizetype length = runEnd - in;
        if (length > 0xFFFF)
            return QString();
        if (length < 9) {
            *out++ = static_cast<char16_t>(u'0' + length);
        } else {
            *out++ = u'9';
            *out++ = static_cast<char16_t>(length);
        }
        out = std::copy(in, runEnd, out);
        in = runEnd;
    }
    key.truncate(out - reinterpret_cast<const char16_t*>(key.constData()));
    return key;
}
