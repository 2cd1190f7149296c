#include "rom/FormatCaption.h"

#include "base/StringHelpers.h"

#include <QSet>
#include <algorithm>

namespace {

bool BecomesBlank(QChar c) {
    const char16_t code = c.unicode();
    return code < 32 || (code >= 127 && code <= 160) || c == QLatin1Char('_');
}

bool StartsWord(QChar c) {
    return QStringLiteral(" ([{;.=+/\\").contains(c);
}

const QSet<QString>& WordsKeptUpper() {
    static const QSet<QString> words = {
        QStringLiteral("NHL"), QStringLiteral("NFL"), QStringLiteral("NBA"), QStringLiteral("FF"),
        QStringLiteral("FX"),  QStringLiteral("DKC"), QStringLiteral("BS"),  QStringLiteral("RBI"),
        QStringLiteral("RPG"), QStringLiteral("SFX"), QStringLiteral("USA"), QStringLiteral("WCW"),
        QStringLiteral("WWF"), QStringLiteral("I"),   QStringLiteral("II"),  QStringLiteral("III"),
        QStringLiteral("IV"),  QStringLiteral("VI"),  QStringLiteral("VII"), QStringLiteral("VIII"),
        QStringLiteral("IX"),
    };
    return words;
}

// Blanks for control characters and "_", runs of blanks shrunk to one.
QString BlankedText(const QString& text) {
    QString result(text.size(), Qt::Uninitialized);
    QChar* const begin = result.data();
    QChar* write = begin;
    for (const QChar c : text) {
        const bool blank = BecomesBlank(c) || c == QLatin1Char(' ');
        if (!blank)
            *write++ = c;
        else if (write == begin || write[-1] != QLatin1Char(' '))
            *write++ = QLatin1Char(' ');
    }
    result.truncate(write - begin);
    return result;
}

// Whether the word is one of those kept in capitals, with the word in capitals in
// upper. Plain ASCII is raised in place; other letters may raise to ASCII ones.
bool KeptUpper(QStringView word, QString& upper) {
    const bool ascii =
        std::all_of(word.begin(), word.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (!ascii) {
        upper = word.toString().toUpper();
    } else {
        upper.resize(word.size());
        QChar* write = upper.data();
        for (const QChar c : word)
            *write++ = c >= QLatin1Char('a') && c <= QLatin1Char('z')
                           ? QChar(c.unicode() - ('a' - 'A'))
                           : c;
    }
    return upper.size() == word.size() && WordsKeptUpper().contains(upper);
}

} // namespace

QString FormatCaption(const QString& text) {
    QString caption = LowerCase(TrimBlanks(BlankedText(text)));
    QChar* const chars = caption.data();
    const qsizetype size = caption.size();
    QString upper;
    bool atWordStart = true;
    qsizetype i = 0;
    while (i < size) {
        const QChar c = chars[i];
        if (!c.isLetterOrNumber()) {
            if (StartsWord(c))
                atWordStart = true;
            else if (c == QLatin1Char('\''))
                atWordStart = false;
            ++i;
            continue;
        }
        qsizetype end = i + 1;
        while (end < size && chars[end].isLetterOrNumber())
            ++end;
        // The words kept in capitals are short; a longer word needs no look-up.
        if (end - i <= 4 && KeptUpper(QStringView(chars + i, end - i), upper))
            std::copy(upper.cbegin(), upper.cend(), chars + i);
        else if (atWordStart && c.isLetter())
            chars[i] = c.toUpper();
        atWordStart = false;
        i = end;
    }
    return caption;
}
