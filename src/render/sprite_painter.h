#pragma once

#include <QColor>
#include <QPoint>

#include <optional>
#include <utility>
#include <vector>

class Level;
class MapCanvas;
class MinimapCanvas;

// What one cell shows: the code it holds, the sheet cell on its map cell (MapCanvas::Cleared
// off the map) and its minimap dot.
struct CellState {
    qint16 code;
    qint16 mapCell;
    QRgb dot;
};

// One cell written by the painter, as it was and as it became.
struct CellWrite {
    qint16 x;
    qint16 y;
    CellState before;
    CellState after;
};

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
    // code's dot inherits), stopping at the first code without a picture, with false; the
    // cells from there on show the background. The canvases must have the grid's size.
    // Goes row by row through memory, so a whole level costs little more than copying it.
    bool paintWholeGrid();

    // True only while every map cell shows its code's picture and every dot its code's own
    // colour, as a whole-grid repaint of coloured codes leaves them; false also when unknown.
    bool showsGrid() const { return gridShown; }
    // The canvases were written past the painter, or the grid replaced: showsGrid() no longer.
    void forgetShownGrid() { gridShown = false; }
    // Exchanges what the two painters know of their canvases, with the canvases themselves.
    void swapShownGrid(SpritePainter& other) noexcept { std::swap(gridShown, other.gridShown); }

    // Every cell paintSprite writes is added to `log` (none: nothing is kept), as it was and
    // as it became; the whole-grid repaint and restoreCell add nothing.
    void setWriteLog(std::vector<CellWrite>* log) { written = log; }
    CellState cellState(int x, int y) const;  // (x, y) inside the grid
    // Makes a cell inside the grid show exactly `state` again: code, map cell and dot.
    void restoreCell(int x, int y, const CellState& state);

  private:
    bool store(int x, int y, int code);
    bool showsCode(int x, int y) const;

    Level& level;
    MapCanvas& map;
    MinimapCanvas& minimap;
    std::vector<CellWrite>* written = nullptr;
    bool gridShown = false;
};
