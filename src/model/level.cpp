#include "level.h"

#include "tile_codes.h"

#include <algorithm>

void Level::Allocate(int width, int height) {
    AllocateUnwritten(width, height);
    std::fill(LevelGrid.begin(), LevelGrid.end(), FloorCode);
}

void Level::AllocateUnwritten(int width, int height) {
    GridWidth = static_cast<qint16>(width);
    GridHeight = static_cast<qint16>(height);
    HeroX.reset();
    HeroY.reset();
    LevelGrid.resize(static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1));
}

qint16 IsWallAt(const Level& level, int x, int y) {
    if (!(x > 0 && x < level.GridWidth && y > 0 && y < level.GridHeight)) return 0;
    return isWallPiece(level.cell(x, y)) ? 1 : 0;
}
