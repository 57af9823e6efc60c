#include "area_painter.h"

#include "cell_region.h"
#include "level.h"
#include "sprite_painter.h"
#include "tile_codes.h"
#include "tool_painter.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QSize>

#include <vector>

void AreaPainter::fill(const CellRegion& region, int tool, QPoint fallbackCell) {
    switch (toolKind(tool)) {
        case ToolKind::Room:
        case ToolKind::Hero:
            return tools.applyTool(fallbackCell.x(), fallbackCell.y(), tool);
        case ToolKind::Wall:
            paintWalls(region);
            break;
        case ToolKind::SingleCell:
            region.forEachCell([&](int x, int y) { sprites.paintSprite(x, y, tool); });
            break;
        case ToolKind::None:
            return;
    }
    rejoinWallsAround(region);
}

// Every cell of the region will be a wall: each piece is chosen from the walls around it as
// they will stand once the whole region is painted, so no cell needs painting twice.
void AreaPainter::paintWalls(const CellRegion& region) {
    const auto wallAfter = [&](int x, int y) {
        // The same strict bounds as isWallAt: the level's outer ring never counts.
        if (x <= 0 || x >= level.width() || y <= 0 || y >= level.height()) return false;
        return region.contains(x, y) || isWallPiece(level.cell(x, y));
    };
    region.forEachCell([&](int x, int y) {
        const int key = wallKey(
            {wallAfter(x - 1, y), wallAfter(x, y + 1), wallAfter(x + 1, y), wallAfter(x, y - 1)});
        sprites.paintSprite(x, y, tools.pieceFor(key));
    });
}

// The walls just outside the region whose neighbours changed, each re-joined once, in the
// order the region's cells reach them (left, below, right, above).
void AreaPainter::rejoinWallsAround(const CellRegion& region) {
    const QRect around = region.bounds().adjusted(-1, -1, 1, 1);
    std::vector<bool> done(static_cast<std::size_t>(around.width()) *
                           static_cast<std::size_t>(around.height()));
    const auto rejoin = [&](int x, int y) {
        if (region.contains(x, y) || !isWallAt(level, x, y)) return;
        const auto at =
            static_cast<std::size_t>(y - around.top()) * static_cast<std::size_t>(around.width()) +
            static_cast<std::size_t>(x - around.left());
        if (done[at]) return;
        done[at] = true;
        tools.chooseWallPiece(x, y);
    };
    region.forEachCell([&](int x, int y) {
        rejoin(x - 1, y);
        rejoin(x, y + 1);
        rejoin(x + 1, y);
        rejoin(x, y - 1);
    });
}

void AreaPainter::layRooms(const CellRegion& region, int tool, QPoint corner) {
    const QRect area = region.bounds();
    if (region.isEmpty()) return;
    const QSize block = toolFootprint(tool);
    const int across = area.width() / block.width();
    const int down = area.height() / block.height();
    // Blocks grow from the corner the drag started at towards the other one.
    const bool fromRight = corner.x() >= area.right() && area.width() > 1;
    const bool fromBottom = corner.y() >= area.bottom() && area.height() > 1;
    for (int row = 0; row < down; ++row) {
        for (int column = 0; column < across; ++column) {
            const int x = fromRight ? area.right() + 1 - (column + 1) * block.width()
                                    : area.left() + column * block.width();
            const int y = fromBottom ? area.bottom() + 1 - (row + 1) * block.height()
                                     : area.top() + row * block.height();
            tools.applyTool(x, y, tool);
        }
    }
}
