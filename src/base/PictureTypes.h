#pragma once

#include <QString>
#include <array>

struct PictureType {
    QString Description;
    QString Extension;
};

using PictureTypeTable = std::array<PictureType, 4>;

// "Bitmap Image (*.bmp)"/"bmp", "GIF Image (*.gif)"/"gif", "JPEG Image (*.jpg)"/"jpg",
// "PNG Image (*.png)"/"png": where several pictures of a game exist, the first wins.
PictureTypeTable FillPictureTypes();
