#pragma once

// Which of a cell's four edges a wall piece reaches, in the neighbour order of all wall
// logic: left (x - 1), below (y + 1), right (x + 1), above (y - 1).
struct WallArms {
    bool left;
    bool below;
    bool right;
    bool above;
};

// The wall key of a cell: one bit per neighbour that is a wall, left the highest bit and
// above the lowest, so 0b1010 means walls to the left and to the right.
constexpr int wallKey(const WallArms& walls) {
    return (walls.left ? 8 : 0) | (walls.below ? 4 : 0) | (walls.right ? 2 : 0) |
           (walls.above ? 1 : 0);
}

inline constexpr int HorizontalWallKey = 0b1010;
inline constexpr int VerticalWallKey = 0b0101;
// Straight pieces come in four looks: the first is drawn half the time, the others a sixth.
inline constexpr int FirstHorizontalPiece = 1;  // 1..4
inline constexpr int FirstVerticalPiece = 5;    // 5..8

// The piece that joins the walls the key names. The two straight keys give their first
// piece here; the wall tool draws one of their four looks at random.
int wallPieceFor(int key);

// The arms of wall piece 1..22; none for other codes.
WallArms armsOfPiece(int piece);
