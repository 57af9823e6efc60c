#pragma once

#include <QPoint>
#include <QRect>

struct LevelBlock;
class Level;
class SpritePainter;
class ToolPainter;

// Lays a copied block of codes into the level, inside the wall frame. Each cell is written
// once with the block's code; only a wall on the block's edge may take another piece, the one
// that joins it to its new neighbours, and the walls just outside are re-joined to it, so a
// pasted wall meets the walls around it as the wall tool would have joined them. A wall whose
// neighbours stay what they were keeps its piece.
class BlockPainter {
  public:
    BlockPainter(Level& level, SpritePainter& sprites, ToolPainter& tools)
        : level(level), sprites(sprites), tools(tools) {}

    // The block's top-left cell goes to `at`; what lies outside the frame's inside is cut
    // off. A hero in the block becomes the level's one hero: the old hero's cell turns to
    // floor, as the hero tool leaves it. The cells written, or an empty rectangle.
    QRect place(const LevelBlock& block, QPoint at);
    // Floor in these cells (inside the frame), the walls round them re-joined.
    QRect clear(const QRect& cells);

  private:
    // The piece a wall on the edge takes: its own while its joins stay right.
    int joinedPiece(int code, int key);
    void rejoinWallsAround(const QRect& cells);

    Level& level;
    SpritePainter& sprites;
    ToolPainter& tools;
};
