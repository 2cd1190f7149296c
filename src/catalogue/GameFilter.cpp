#include "catalogue/GameFilter.h"

#include "catalogue/FoldedText.h"

GameFilter::GameFilter(QStringView typed) {
    // Folded first: folding turns some characters into several, a wide blank into a plain one.
    m_words = FoldedText(typed).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool GameFilter::Matches(QStringView foldedCaption, QStringView foldedFileName) const {
    for (const QString& word : m_words) {
        if (!foldedCaption.contains(word) && !foldedFileName.contains(word))
            return false;
    }
    return true;
}
