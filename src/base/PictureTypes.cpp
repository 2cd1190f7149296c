#include "base/PictureTypes.h"

PictureTypeTable FillPictureTypes() {
    return {{{QStringLiteral("Bitmap Image (*.bmp)"), QStringLiteral("bmp")},
             {QStringLiteral("GIF Image (*.gif)"), QStringLiteral("gif")},
             {QStringLiteral("JPEG Image (*.jpg)"), QStringLiteral("jpg")},
             {QStringLiteral("PNG Image (*.png)"), QStringLiteral("png")}}};
}
