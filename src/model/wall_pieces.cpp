#include "wall_pieces.h"

#include "tile_codes.h"

namespace {
// Piece by wall key.
constexpr int PieceByKey[16] = {
    /* 0b0000 */ 14, /* 0b0001 */ 16, /* 0b0010 */ 18, /* 0b0011 */ 22,
    /* 0b0100 */ 15, /* 0b0101 */ 5,  /* 0b0110 */ 21, /* 0b0111 */ 12,
    /* 0b1000 */ 17, /* 0b1001 */ 19, /* 0b1010 */ 1,  /* 0b1011 */ 9,
    /* 0b1100 */ 20, /* 0b1101 */ 11, /* 0b1110 */ 10, /* 0b1111 */ 13,
};
}  // namespace

int wallPieceFor(int key) {
    return PieceByKey[key & 0b1111];
}

WallArms armsOfPiece(int piece) {
    if (!isWallPiece(piece)) return {false, false, false, false};
    // Every look of a straight piece has the arms of its first look, which the table holds.
    if (piece < FirstVerticalPiece)
        piece = FirstHorizontalPiece;
    else if (piece < FirstVerticalPiece + 4)
        piece = FirstVerticalPiece;
    int key = 0;
    while (PieceByKey[key] != piece) ++key;
    return {(key & 8) != 0, (key & 4) != 0, (key & 2) != 0, (key & 1) != 0};
}
