#include "level.h"

#include "tile_codes.h"

#include <algorithm>

void Level::reset(int width, int height) {
    resetUnwritten(width, height);
    std::fill(cells.begin(), cells.end(), FloorCode);
}

void Level::resetUnwritten(int width, int height) {
    columns = width;
    rows = height;
    heroCell.reset();
    cells.resize(static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1));
}

bool isWallAt(const Level& level, int x, int y) {
    return x > 0 && x < level.width() && y > 0 && y < level.height() &&
           isWallPiece(level.cell(x, y));
}

bool containsHero(const Level& level) {
    for (int y = 0; y < level.height(); ++y) {
        const qint16* row = level.row(y);
        if (std::find(row, row + level.width(), HeroCode) != row + level.width()) return true;
    }
    return false;
}
