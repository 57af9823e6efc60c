#pragma once

#include <QPoint>

class CellRegion;
class Level;
class SpritePainter;
class ToolPainter;

// Applies a palette tool to a whole region of cells at once, with the result of applying it
// to each cell in turn, but writing each cell once: the region is already computed, its cells
// are painted row by row, then the walls next to it are re-joined, each once.
class AreaPainter {
  public:
    AreaPainter(Level& level, SpritePainter& sprites, ToolPainter& tools)
        : level(level), sprites(sprites), tools(tools) {}

    // Floor, a wall, or a single-cell object in every cell of the region. A room or the hero
    // is no area tool: `tool` is then applied at `fallbackCell` alone, as a click does.
    void fill(const CellRegion& region, int tool, QPoint fallbackCell);
    // As many whole blocks of room `tool` as fit in the region's bounds, laid from `corner`
    // (one of its corners) towards the opposite one.
    void layRooms(const CellRegion& region, int tool, QPoint corner);

  private:
    void paintWalls(const CellRegion& region);
    void rejoinWallsAround(const CellRegion& region);

    Level& level;
    SpritePainter& sprites;
    ToolPainter& tools;
};
