#pragma once

#include <QPoint>

#include <optional>

class Level;
class MapCanvas;
class MinimapCanvas;

// The one write path of the editor: storing a code, drawing its sheet cell on the map and
// plotting its minimap dot are one step, so grid, map and minimap never disagree.
class SpritePainter {
  public:
    SpritePainter(Level& level, MapCanvas& map, MinimapCanvas& minimap)
        : level(level), map(map), minimap(minimap) {}

    // Cells outside 0..width x 0..height are ignored. A code without a picture is stored,
    // but nothing is drawn or plotted, and the answer is false.
    bool paintSprite(int x, int y, int code);
    // Lays room 0..7 as its block with the top-left cell on (x, y), row by row.
    void paintRoom(int x, int y, int room);
    // Paints every cell of the grid, margin included, with the code it holds: the same as
    // paintSprite on each cell column by column (the order decides the colour an uncoloured
    // code's dot inherits), stopping at the first code without a picture, with false.
    // Goes row by row through memory, so a whole level costs little more than copying it.
    bool paintWholeGrid();

  private:
    Level& level;
    MapCanvas& map;
    MinimapCanvas& minimap;
};
