#pragma once

#include <QImage>

namespace Art {

// Wall pieces 1..22, each reaching the cell edges of its arms; straight pieces come in four
// looks.
QImage drawWallPiece(int piece);

}  // namespace Art
