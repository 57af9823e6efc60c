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
    int randomHorizontalPiece();  // 1 with probability 1/2, else 2, 3 or 4
    int randomVerticalPiece();    // 5 with probability 1/2, else 6, 7 or 8

  private:
    Level& level;
    SpritePainter& sprites;
    RandomGenerator& random;
};

// The wall key of (x, y): which of its four neighbours are walls.
int wallKeyAt(const Level& level, int x, int y);
