#pragma once

#include <QString>
#include <array>

struct PictureType {
    QString Description;
    QString Extension;
};

using PictureTypeTable = std::array<PictureType, 3>;

// "Bitmap Image (*.bmp)"/"bmp", "GIF Image (*.gif)"/"gif", "JPEG Image (*.jpg)"/"jpg".
PictureTypeTable FillPictureTypes();
