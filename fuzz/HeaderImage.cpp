#include "HeaderImage.h"

using namespace header_image;

QByteArray SparseImage(const QByteArray& recipe) {
    if (recipe.size() < RecipeLength)
        return QByteArray();
    const auto byteAt = [&recipe](int index) { return static_cast<quint8>(recipe[index]); };
    const qsizetype length = ImageBaseLength + (byteAt(0) | byteAt(1) << 8);
    const char filler = (byteAt(2) & 1) ? '\xFF' : '\0';
    QByteArray image(length, filler);
    qsizetype next = RecipeLength;
    for (const int start : WindowStarts) {
        const QByteArray window = recipe.mid(next, WindowLength);
        const qsizetype kept = std::min(window.size(), length - start);
        if (kept <= 0)
            break;
        image.replace(start, kept, window.left(kept));
        next += WindowLength;
    }
    return image;
}
