#include "catalogue/FoldedText.h"

#include "base/StringHelpers.h"

namespace {

bool IsPlainAscii(QStringView text) {
    for (const QChar c : text) {
        if (c.unicode() >= 0x80)
            return false;
    }
    return true;
}

bool IsCombiningMark(char32_t codePoint) {
    switch (QChar::category(codePoint)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return true;
    default:
        return false;
    }
}

} // namespace

QString FoldedText(QStringView text) {
    // Most captions and file names are plain ASCII: nothing to decompose.
    if (IsPlainAscii(text))
        return AsciiLowerCase(text);
    const QString decomposed = text.toString().normalized(QString::NormalizationForm_KD);
    QString folded;
    folded.reserve(decomposed.size());
    for (qsizetype i = 0; i < decomposed.size(); ++i) {
        char32_t codePoint = decomposed.at(i).unicode();
        if (QChar::isHighSurrogate(codePoint) && i + 1 < decomposed.size() &&
            decomposed.at(i + 1).isLowSurrogate()) {
            codePoint = QChar::surrogateToUcs4(decomposed.at(i), decomposed.at(i + 1));
            ++i;
        }
        if (IsCombiningMark(codePoint))
            continue;
        const char32_t lower = QChar::toCaseFolded(codePoint);
        if (QChar::requiresSurrogates(lower)) {
            folded.append(QChar(QChar::highSurrogate(lower)));
            folded.append(QChar(QChar::lowSurrogate(lower)));
        } else {
            folded.append(QChar(static_cast<char16_t>(lower)));
        }
    }
    return folded;
}
