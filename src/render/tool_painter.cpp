#include "tool_painter.h"

#include "level.h"
#include "random_generator.h"
#include "sprite_painter.h"
#include "tile_codes.h"
#include "tools.h"
#include "wall_pieces.h"

namespace {
// The neighbour order of all wall logic: left, below, right, above.
constexpr QPoint Neighbours[4] = {{-1, 0}, {0, 1}, {1, 0}, {0, -1}};

// The first look with probability 1/2, else one of the next three with 1/6 each. A product
// of exactly 500 takes the second branch.
int drawStraightPiece(RandomGenerator& random, int first) {
    const float share = random.next() * 1000.0f;
    if (share < 500.0f) return first;
    return static_cast<int>(random.next() * 3.0f) + first + 1;
}
}  // namespace

int wallKeyAt(const Level& level, int x, int y) {
    return wallKey({isWallAt(level, x - 1, y), isWallAt(level, x, y + 1), isWallAt(level, x + 1, y),
                    isWallAt(level, x, y - 1)});
}

void ToolPainter::applyTool(int x, int y, int tool) {
    switch (toolKind(tool)) {
        case ToolKind::Wall:
            chooseWallPiece(x, y);
            break;
        case ToolKind::Room:
            sprites.paintRoom(x, y, tool - FirstRoomTool);
            break;
        case ToolKind::Hero: {
            const QPoint old = level.heroOrOrigin();
            sprites.paintSprite(old.x(), old.y(), FloorCode);
            sprites.paintSprite(x, y, HeroCode);
            level.setHero(QPoint(x, y));
            break;
        }
        case ToolKind::SingleCell:
            sprites.paintSprite(x, y, tool);
            break;
        case ToolKind::None:
            break;
    }
    for (const QPoint n : Neighbours) {
        if (isWallAt(level, x + n.x(), y + n.y())) chooseWallPiece(x + n.x(), y + n.y());
    }
}

void ToolPainter::chooseWallPiece(int x, int y) {
    sprites.paintSprite(x, y, pieceFor(wallKeyAt(level, x, y)));
}

int ToolPainter::pieceFor(int key) {
    if (key == HorizontalWallKey) return drawStraightPiece(random, FirstHorizontalPiece);
    if (key == VerticalWallKey) return drawStraightPiece(random, FirstVerticalPiece);
    return wallPieceFor(key);
}
