#include "cell_drawer.h"

#include "level.h"
#include "random_generator.h"
#include "sprite_painter.h"
#include "tile_codes.h"

#include <exception>

namespace {

// One step of DrawCell: a failure abandons the step and the next one runs.
template <typename Step>
void passOverFailure(Step&& step) {
    try {
        step();
    } catch (const std::exception&) {
    }
}

struct Neighbour {
    int dx;
    int dy;
};
// The neighbour order of all wall logic: left, below, right, above.
constexpr Neighbour Neighbours[4] = {{-1, 0}, {0, 1}, {1, 0}, {0, -1}};

// Piece by wall key; 0 marks the two straight keys, whose piece is drawn at random.
constexpr int WallPieces[16] = {
    /* 0b0000 */ 14, /* 0b0001 */ 16, /* 0b0010 */ 18, /* 0b0011 */ 22,
    /* 0b0100 */ 15, /* 0b0101 */ 0,  /* 0b0110 */ 21, /* 0b0111 */ 12,
    /* 0b1000 */ 17, /* 0b1001 */ 19, /* 0b1010 */ 0,  /* 0b1011 */ 9,
    /* 0b1100 */ 20, /* 0b1101 */ 11, /* 0b1110 */ 10, /* 0b1111 */ 13,
};

bool paintsSingleCell(int code) {
    return code == FloorCode || (code >= 23 && code <= 29) || (code >= 124 && code <= 127) ||
           code == 134 || (code >= 136 && code <= 138);
}

}  // namespace

int WallKey(const Level& level, int x, int y) {
    int key = 0;
    for (const Neighbour& n : Neighbours) key = (key << 1) | IsWallAt(level, x + n.dx, y + n.dy);
    return key;
}

void CellDrawer::DrawCell(int x, int y, int selectedCode) {
    if (selectedCode == WallToolCode) {
        passOverFailure([&] { ChooseWallPiece(x, y); });
    } else if (selectedCode >= FirstRoomTool && selectedCode <= LastRoomTool) {
        passOverFailure([&] { sprites.PaintTileSprite(x, y, selectedCode - FirstRoomTool); });
    } else if (selectedCode == HeroCode) {
        passOverFailure(
            [&] { sprites.PaintSprite(level.heroXOrOrigin(), level.heroYOrOrigin(), FloorCode); });
        passOverFailure([&] { sprites.PaintSprite(x, y, HeroCode); });
        level.HeroX = x;
        level.HeroY = y;
    } else if (paintsSingleCell(selectedCode)) {
        passOverFailure([&] { sprites.PaintSprite(x, y, selectedCode); });
    }
    for (const Neighbour& n : Neighbours) {
        if (IsWallAt(level, x + n.dx, y + n.dy) == 1)
            passOverFailure([&] { ChooseWallPiece(x + n.dx, y + n.dy); });
    }
}

void CellDrawer::ChooseWallPiece(int x, int y) {
    const int key = WallKey(level, x, y);
    int piece = WallPieces[key];
    if (key == 0b1010) piece = RandomVariant();
    if (key == 0b0101) piece = RandomVariant2();
    sprites.PaintSprite(x, y, piece);
}

namespace {
// 1 (or 5) with probability 1/2, else one of the next three with 1/6 each. A product of
// exactly 500 takes the second branch.
int drawStraightVariant(RandomGenerator& random, int first) {
    const float share = random.next() * 1000.0f;
    if (share < 500.0f) return first;
    return static_cast<int>(random.next() * 3.0f) + first + 1;
}
}  // namespace

int CellDrawer::RandomVariant() {
    return drawStraightVariant(random, 1);
}
int CellDrawer::RandomVariant2() {
    return drawStraightVariant(random, 5);
}
