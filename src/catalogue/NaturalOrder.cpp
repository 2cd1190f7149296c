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
    QString key;
    key.reserve(folded.size() + 2);
    for (qsizetype i = 0; i < folded.size();) {
        const QChar c = folded[i];
        if (!IsDigit(c)) {
            key.append(c);
            ++i;
            continue;
        }
        const qsizetype end = DigitsEnd(folded, i);
        for (qsizetype digit = i; digit < end; ++digit) {
            if (folded[digit].unicode() > u'9')
                return QString();
        }
        while (end - i > 1 && folded[i] == u'0')
            ++i;
        // The length stands where the first digit did: against any other character
        // it compares as a digit would, and a longer number comes later.
        const qsizetype length = end - i;
        if (length > 0xFFFF)
            return QString();
        if (length < 9) {
            key.append(QChar(static_cast<char16_t>(u'0' + length)));
        } else {
            key.append(QLatin1Char('9'));
            key.append(QChar(static_cast<char16_t>(length)));
        }
        key.append(folded.sliced(i, length));
        i = end;
    }
    return key;
}
