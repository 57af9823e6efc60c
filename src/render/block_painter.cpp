#include "block_painter.h"

#include "cell_region.h"
#include "level.h"
#include "level_block.h"
#include "sprite_painter.h"
#include "tile_codes.h"
#include "tool_painter.h"
#include "wall_pieces.h"

#include <optional>

QRect BlockPainter::place(const LevelBlock& block, QPoint at) {
    if (block.isEmpty()) return {};
    const QRect cells = QRect(at, QSize(block.width, block.height)) & cellsInsideFrame(level);
    if (cells.isEmpty()) return {};
    const auto codeAt = [&](int x, int y) { return int(block.at(x - at.x(), y - at.y())); };

    // 1. The hero the block brings, if any: the old one's cell goes back to floor first.
    std::optional<QPoint> hero;
    for (int y = cells.top(); y <= cells.bottom(); ++y)
        for (int x = cells.left(); x <= cells.right(); ++x)
            if (codeAt(x, y) == HeroCode) hero = QPoint(x, y);
    const std::optional<QPoint> oldHero = level.hero();
    if (hero && oldHero && !cells.contains(*oldHero) &&
        level.contains(oldHero->x(), oldHero->y()) &&
        level.cell(oldHero->x(), oldHero->y()) == HeroCode)
        sprites.paintSprite(oldHero->x(), oldHero->y(), FloorCode);

    // 2. Every cell once, row by row; an edge wall joined to the walls as they will stand.
    const auto wallAfter = [&](int x, int y) {
        // The same strict bounds as isWallAt: the level's outer ring never counts.
        if (x <= 0 || x >= level.width() || y <= 0 || y >= level.height()) return false;
        return isWallPiece(cells.contains(x, y) ? codeAt(x, y) : level.cell(x, y));
    };
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        const bool edgeRow = y == cells.top() || y == cells.bottom();
        for (int x = cells.left(); x <= cells.right(); ++x) {
            int code = codeAt(x, y);
            if (isWallPiece(code) && (edgeRow || x == cells.left() || x == cells.right()))
                code = joinedPiece(code, wallKey({wallAfter(x - 1, y), wallAfter(x, y + 1),
                                                  wallAfter(x + 1, y), wallAfter(x, y - 1)}));
            sprites.paintSprite(x, y, code);
        }
    }
    if (hero) level.setHero(hero);

    // 3. The walls just outside, each once.
    rejoinWallsAround(cells);
    return cells.adjusted(-1, -1, 1, 1);
}

QRect BlockPainter::clear(const QRect& cells) {
    const QRect cleared = cells & cellsInsideFrame(level);
    if (cleared.isEmpty()) return {};
    for (int y = cleared.top(); y <= cleared.bottom(); ++y)
        for (int x = cleared.left(); x <= cleared.right(); ++x)
            sprites.paintSprite(x, y, FloorCode);
    rejoinWallsAround(cleared);
    return cleared.adjusted(-1, -1, 1, 1);
}

int BlockPainter::joinedPiece(int code, int key) {
    return wallKey(armsOfPiece(code)) == key ? code : tools.pieceFor(key);
}

// The walls beside the rectangle's four sides (not its corners' diagonals), in the order
// left column, right column, top row, bottom row; a wall whose joins did not change keeps
// its piece.
void BlockPainter::rejoinWallsAround(const QRect& cells) {
    const auto rejoin = [&](int x, int y) {
        if (!isWallAt(level, x, y)) return;
        if (wallKey(armsOfPiece(level.cell(x, y))) != wallKeyAt(level, x, y))
            tools.chooseWallPiece(x, y);
    };
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        rejoin(cells.left() - 1, y);
        rejoin(cells.right() + 1, y);
    }
    for (int x = cells.left(); x <= cells.right(); ++x) {
        rejoin(x, cells.top() - 1);
        rejoin(x, cells.bottom() + 1);
    }
}
