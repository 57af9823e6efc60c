#include "cell_region.h"

#include <algorithm>

#include "level.h"
#include "tile_codes.h"

CellRegion::CellRegion(const QRect& bounds)
    : box(bounds),
      inside(bounds.isEmpty() ? 0
                              : static_cast<std::size_t>(bounds.width()) *
                                    static_cast<std::size_t>(bounds.height())) {}

void CellRegion::add(int x, int y) {
    std::uint8_t& cell = inside[offset(x, y)];
    cellCount += cell == 0 ? 1 : 0;
    cell = 1;
}

bool isInsideFrame(const Level& level, int x, int y) {
    return x >= 2 && y >= 2 && x < level.width() - 2 && y < level.height() - 2;
}

QRect cellsInsideFrame(const Level& level) {
    return QRect(QPoint(2, 2), QPoint(level.width() - 3, level.height() - 3));
}

QRect cellsBetween(QPoint corner, QPoint otherCorner) {
    return {QPoint(std::min(corner.x(), otherCorner.x()), std::min(corner.y(), otherCorner.y())),
            QPoint(std::max(corner.x(), otherCorner.x()), std::max(corner.y(), otherCorner.y()))};
}

CellRegion rectangleRegion(const Level& level, QPoint corner, QPoint otherCorner) {
    const QRect cells = cellsBetween(corner, otherCorner) & cellsInsideFrame(level);
    CellRegion region(cells);
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        for (int x = cells.left(); x <= cells.right(); ++x) region.add(x, y);
    }
    return region;
}

// A scanline fill: each run of matching cells is added whole, and the rows above and below it
// are searched for runs to visit next. No recursion, so a level of a million cells is safe.
CellRegion floodRegion(const Level& level, QPoint start) {
    if (!isInsideFrame(level, start.x(), start.y())) return {};
    const QRect frame = cellsInsideFrame(level);
    CellRegion region(frame);
    const int startCode = level.cell(start.x(), start.y());
    const auto matches = [&](int x, int y) {
        const int code = level.cell(x, y);
        return isWallPiece(startCode) ? isWallPiece(code) : code == startCode;
    };
    const auto open = [&](int x, int y) {
        return frame.contains(x, y) && !region.contains(x, y) && matches(x, y);
    };
    std::vector<QPoint> seeds{start};
    while (!seeds.empty()) {
        const QPoint seed = seeds.back();
        seeds.pop_back();
        if (!open(seed.x(), seed.y())) continue;
        int left = seed.x();
        while (open(left - 1, seed.y())) --left;
        int right = seed.x();
        while (open(right + 1, seed.y())) ++right;
        for (int x = left; x <= right; ++x) region.add(x, seed.y());
        for (const int y : {seed.y() - 1, seed.y() + 1}) {
            // One seed for each run of open cells next to this one.
            bool inRun = false;
            for (int x = left; x <= right; ++x) {
                const bool cell = open(x, y);
                if (cell && !inRun) seeds.emplace_back(x, y);
                inRun = cell;
            }
        }
    }
    return region;
}
