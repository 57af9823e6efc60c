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

namespace {
// Whether any of the codes lacks a picture. A maximum is a reduction the compiler vectorises;
// negative codes count as large ones.
bool anyWithoutPicture(const qint16* codes, int count) {
    quint16 highest = 0;
    for (int x = 0; x < count; ++x) highest = std::max(highest, static_cast<quint16>(codes[x]));
    return highest >= SheetCellCount;
}
}  // namespace

bool containsHero(const Level& level) {
    for (int y = 0; y < level.height(); ++y) {
        const qint16* row = level.row(y);
        if (std::find(row, row + level.width(), HeroCode) != row + level.width()) return true;
    }
    return false;
}

std::optional<QPoint> firstCellWithoutPicture(const Level& level) {
    std::optional<QPoint> first;
    for (int y = 0; y <= level.height(); ++y) {
        const qint16* row = level.row(y);
        // Only a column left of one already found comes earlier.
        const int columns = first ? first->x() : level.width() + 1;
        if (!anyWithoutPicture(row, columns)) continue;
        first = QPoint(static_cast<int>(std::find_if_not(row, row + columns, hasPicture) - row), y);
    }
    return first;
}
