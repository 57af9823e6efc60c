#pragma once

#include <QImage>

namespace Art {

// Arms of a wall piece: which cell edges its wall reaches.
struct WallArms {
    bool left;
    bool below;
    bool right;
    bool above;
};

// Wall pieces 1..22 as the wall table names them; straight pieces come in four looks.
WallArms armsOfPiece(int piece);
QImage drawWallPiece(int piece);

}  // namespace Art
