#pragma once

#include <QByteArray>
#include <array>

// The header fuzz target reads every input twice: as a file as it is, and as the
// recipe of a sparse game image, so that inputs of a few bytes reach the header
// candidates 32 KiB to 64 KiB into a file:
//   bytes 0-1  the image length less ImageBaseLength, low byte first
//   byte 2     the filler: odd fills the image with 0xFF (blank), even with zeros
//   the rest   windows of WindowLength bytes, copied to the candidates in file order;
//              what falls past the image's end is dropped
namespace header_image {

constexpr int ImageBaseLength = 0x7000;
constexpr int RecipeLength = 3;
constexpr std::array<int, 3> WindowStarts = {0x7FC0, 0x81C0, 0x101C0};
// The 32 bytes of a header and the few after it that the decoder also reads.
constexpr int WindowLength = 36;

} // namespace header_image

QByteArray SparseImage(const QByteArray& recipe);
