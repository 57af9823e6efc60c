#pragma once

class Level;
class MapCanvas;
class MinimapCanvas;
class SpriteSheet;

inline constexpr int RoomCount = 8;

// The one write path of the editor: storing a code, drawing its sheet cell on the map and
// plotting its minimap dot are one step, so grid, map and minimap never disagree.
class SpritePainter {
  public:
    SpritePainter(Level& level, const SpriteSheet& sheet, MapCanvas& map, MinimapCanvas& minimap)
        : level(level), sheet(sheet), map(map), minimap(minimap) {}

    // Cells outside 0..GridWidth x 0..GridHeight are ignored. A code without a sheet cell is
    // stored, then SheetCellError reaches the caller and nothing is drawn or plotted.
    void PaintSprite(int x, int y, int code);
    // Paints every cell of the grid, margin included, with the code it holds: the same as
    // PaintSprite on each cell column by column (the order decides the colour an uncoloured
    // code's dot inherits), stopping with SheetCellError at the first code without a picture.
    // Goes row by row through memory, so a whole level costs little more than copying it.
    void PaintWholeGrid();
    // Lays room 0..7 as its block with the top-left cell on (x, y), row by row.
    void PaintTileSprite(int x, int y, int room);

  private:
    Level& level;
    const SpriteSheet& sheet;
    MapCanvas& map;
    MinimapCanvas& minimap;
};

// The code a room's block puts at block position (dx, dy), or -1 outside the block.
int RoomBlockCode(int room, int dx, int dy);
int RoomBlockColumns(int room);
int RoomBlockRows(int room);
