#pragma once

class Level;
class RandomGenerator;
class SpritePainter;

// Applies a palette tool to one cell and re-joins the wall pieces of its four neighbours.
class ToolPainter {
  public:
    ToolPainter(Level& level, SpritePainter& sprites, RandomGenerator& random)
        : level(level), sprites(sprites), random(random) {}

    void applyTool(int x, int y, int tool);
    // Paints at (x, y) the wall piece whose arms point at the neighbours that are walls.
    void chooseWallPiece(int x, int y);
    // The piece for a wall key: from the piece table, but a plain straight wall is drawn from
    // its four pieces at random.
    int pieceFor(int key);

  private:
    Level& level;
    SpritePainter& sprites;
    RandomGenerator& random;
};

// The wall key of (x, y): which of its four neighbours are walls.
int wallKeyAt(const Level& level, int x, int y);
