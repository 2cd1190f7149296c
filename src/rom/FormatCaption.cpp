#include "rom/FormatCaption.h"

#include "base/StringHelpers.h"

#include <QSet>

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
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        const bool blank = BecomesBlank(c) || c == QLatin1Char(' ');
        if (!blank)
            result += c;
        else if (!result.endsWith(QLatin1Char(' ')))
            result += QLatin1Char(' ');
    }
    return result;
}

} // namespace

QString FormatCaption(const QString& text) {
    QString caption = LowerCase(TrimBlanks(BlankedText(text)));
    bool atWordStart = true;
    qsizetype i = 0;
    while (i < caption.size()) {
        const QChar c = caption.at(i);
        if (!c.isLetterOrNumber()) {
            if (StartsWord(c))
                atWordStart = true;
            else if (c == QLatin1Char('\''))
                atWordStart = false;
            ++i;
            continue;
        }
        qsizetype end = i + 1;
        while (end < caption.size() && caption.at(end).isLetterOrNumber())
            ++end;
        // The words kept in capitals are short; a longer word needs no look-up.
        const QString upper = end - i <= 4 ? caption.mid(i, end - i).toUpper() : QString();
        if (upper.size() == end - i && WordsKeptUpper().contains(upper))
            caption.replace(i, end - i, upper);
        else if (atWordStart && c.isLetter())
            caption[i] = c.toUpper();
        atWordStart = false;
        i = end;
    }
    return caption;
}
