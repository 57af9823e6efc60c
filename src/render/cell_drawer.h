#pragma once

class Level;
class RandomGenerator;
class SpritePainter;

// Applies a palette tool to one cell and renews the wall pieces of its four neighbours.
class CellDrawer {
  public:
    CellDrawer(Level& level, SpritePainter& sprites, RandomGenerator& random)
        : level(level), sprites(sprites), random(random) {}

    // Never fails: a failing step is passed over and the next one runs.
    void DrawCell(int x, int y, int selectedCode);
    // Paints at (x, y) the wall piece whose arms point at the neighbours that are walls.
    void ChooseWallPiece(int x, int y);
    int RandomVariant();   // 1 with probability 1/2, else 2, 3 or 4
    int RandomVariant2();  // 5 with probability 1/2, else 6, 7 or 8

  private:
    Level& level;
    SpritePainter& sprites;
    RandomGenerator& random;
};

// The wall key of (x, y): one bit per neighbour that is a wall, written in the neighbour
// order left, below, right, above from the highest bit down, so 0b1010 reads as the key
// "1010": walls to the left and to the right.
int WallKey(const Level& level, int x, int y);
