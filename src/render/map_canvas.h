#pragma once

#include "grid_allocator.h"

#include <QColor>
#include <QRect>

#include <functional>
#include <vector>

class QImage;
class QPainter;
class SpriteSheet;

inline constexpr int TileSize = 64;
inline constexpr QRgb MapBackground = qRgb(204, 204, 204);

// What the map surface shows, one entry per map cell: the sheet cell last drawn there, or
// Cleared for the grey background. Pixels exist only while a widget paints an exposed part.
class MapCanvas {
  public:
    static constexpr qint16 Cleared = -1;

    // A surface of columns x rows map cells (64 pixels each): all cleared when the size
    // changes, kept as they are when it does not. For a caller that draws every row whole
    // next, the cells of a new size may be left undefined instead.
    enum class NewCells { Cleared, Undefined };
    void resize(int columns, int rows, NewCells newCells = NewCells::Cleared);
    int columns() const { return width; }
    int rows() const { return height; }
    QSize pixelSize() const { return {width * TileSize, height * TileSize}; }

    // Copies sheet cell `sheetCell` onto map cell (x, y) (Cleared puts the background back);
    // a cell off the surface is dropped, as a picture drawn beyond a surface's edge is.
    void drawCell(int x, int y, int sheetCell);
    // Copies sheet cells onto map cells (0, y) .. (count - 1, y) at once, as drawCell does
    // one by one; the change is told once, for the row.
    void drawRow(int y, const qint16* sheetCells, int count);
    int cellAt(int x, int y) const;  // Cleared also for cells off the surface
    const qint16* row(int y) const;  // cells (0, y) .. (columns() - 1, y), for 0 <= y < rows()

    // Paints the part `exposed` (surface pixels) onto `painter`: each cell's sheet picture at
    // its own size, clipped to its 64-pixel square, grey where nothing was drawn. Costs in
    // proportion to the exposed area, not to the level.
    void paint(QPainter& painter, const QRect& exposed, const SpriteSheet& sheet) const;

    // Zoomed out, cells of `tileSize` pixels: the part `exposed` (pixels of the zoomed
    // surface) from `tiles`, the sheet's cells at that size (see ZoomedTiles), composed in
    // `scratch` (grown when too small, kept by the caller) and drawn at once. Costs in
    // proportion to the exposed area.
    void paintZoomed(QPainter& painter, const QRect& exposed, const QImage& tiles, int tileSize,
                     QImage& scratch) const;

    // The surface pixels of a rectangle of map cells, cells of `tileSize` pixels.
    static QRect pixelsOf(const QRect& cells, int tileSize = TileSize) {
        return {cells.x() * tileSize, cells.y() * tileSize, cells.width() * tileSize,
                cells.height() * tileSize};
    }

    // Exchanges what the two surfaces show, sizes and cells; each keeps its change listener,
    // and neither tells.
    void swapCells(MapCanvas& other) noexcept;
    // Told the cells of every change.
    void setChangeListener(std::function<void(const QRect&)> listener) {
        changed = std::move(listener);
    }

  private:
    void paintSmallTiles(const QRect& area, const QRgb* const* tileOf, qsizetype tileStride,
                         int tileSize, QImage& scratch) const;
    int width = 0;
    int height = 0;
    std::vector<qint16, GridAllocator<qint16>> cells;
    std::function<void(const QRect&)> changed;
};
