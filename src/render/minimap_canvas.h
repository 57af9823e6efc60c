#pragma once

#include "grid_allocator.h"

#include <QColor>
#include <QPointF>
#include <QRect>

#include <functional>
#include <vector>

class QImage;
class QPainter;

inline constexpr int MinimapCellSize = 6;
// A cell's dot is the 6-pixel square centred on (6x, 6y): pixels 6x - 3 up to 6x + 2.
inline constexpr int MinimapDotReach = MinimapCellSize / 2;
inline constexpr QRgb MinimapBackground = qRgb(184, 221, 239);
// The dots of the figures and of the items: single cells that matter, kept whole when the
// minimap is shown smaller than one pixel a cell.
inline constexpr QRgb FigureDotColour = qRgb(255, 0, 0);
inline constexpr QRgb ItemDotColour = qRgb(0, 0, 255);

// Levels up to this many cells a side show their minimap at full size; larger ones shrink to
// the box of this side, keeping their proportions.
inline constexpr int LargestFullSizeMinimapSide = 40;
inline constexpr int MinimapBoxSide = LargestFullSizeMinimapSide * MinimapCellSize;

// The thinnest a shrunk minimap is drawn across its short side: a very long, narrow level is
// stretched that way, so that it can be seen and clicked.
inline constexpr int ThinnestMinimapSide = 12;

// How one axis of the minimap is shown: `shown` pixels for every `full` pixels of the
// full-size surface (6 a cell), kept as a fraction so that pixel edges are exact.
struct AxisScale {
    int shown = 1;
    int full = 1;

    bool isFull() const { return shown == full; }
    // A shown length as the full-size length it stands for, and back.
    float toFull(float shownPixels) const;
    float toShown(float fullPixels) const;
};

// How the minimap is shown, across and down: the same fraction both ways but where a level's
// short side is stretched to ThinnestMinimapSide.
struct MinimapScale {
    AxisScale across;
    AxisScale down;

    bool isFull() const { return across.isFull() && down.isFull(); }
    QPointF toFull(QPointF shown) const;
    // The shown pixels that show any of these full-size pixels.
    QRect shownRect(const QRect& fullPixels) const;
};
MinimapScale minimapScaleFor(int columns, int rows);

// What the minimap surface shows: one dot colour per level cell, including the margin column
// and row whose dots are half on the surface, and the persistent drawing colour.
class MinimapCanvas {
  public:
    explicit MinimapCanvas(QRgb initialDrawingColour = qRgb(0, 0, 0))
        : drawing(initialDrawingColour) {}

    // A surface 6 * columns x 6 * rows pixels: all background when the size changes, kept as
    // it is when it does not. For a caller that draws every row whole next, the dots of a new
    // size may be left undefined instead.
    enum class NewDots { Background, Undefined };
    void resize(int columns, int rows, NewDots newDots = NewDots::Background);
    int columns() const { return width; }
    int rows() const { return height; }
    QSize pixelSize() const { return {width * MinimapCellSize, height * MinimapCellSize}; }

    QRgb background() const { return MinimapBackground; }
    QRgb drawingColour() const { return drawing; }
    void setDrawingColour(QRgb colour) { drawing = colour; }

    // A solid 6-pixel square in the drawing colour centred on (6x, 6y); dots of neighbouring
    // cells meet edge to edge. Cells beyond the margin are dropped.
    void drawDot(int x, int y);
    // Dots (0, y) .. (count - 1, y) in their own colours at once; the drawing colour stays.
    void drawDotRow(int y, const QRgb* colours, int count);
    // The same, with the dots given as colour indices (below).
    void drawIndexedDotRow(int y, const quint8* indices, int count);
    // The byte a dot of this colour is kept as; the background's is BackgroundIndex.
    quint8 colourIndex(QRgb colour);
    static constexpr quint8 BackgroundIndex = 0;
    // One dot in its own colour; the drawing colour stays.
    void setDot(int x, int y, QRgb colour);
    QRgb dotAt(int x, int y) const;  // background for cells never dotted
    // The colours of dots (0, y) .. (columns(), y) into `out`, for 0 <= y <= rows().
    void dotColoursOfRow(int y, QRgb* out) const;

    // Paints the part `exposed` (surface pixels); cost follows the exposed area.
    void paint(QPainter& painter, const QRect& exposed) const;
    // The whole surface shown at `scale`, and the part `exposed` of it painted. Each shown
    // pixel blends the dots under it by the area they cover there, except that a pixel with
    // any figure under it is the figure's red, else one with any item the items' blue, and
    // that whatever is not floor shows at least half strong: a lone cell never fades away.
    // Where a cell is shown under 2 pixels, each figure is a 3 x 3 square of its red, so its
    // changes reach one pixel beyond the cell's own.
    QSize shownSize(MinimapScale scale) const;
    void paintScaled(QPainter& painter, const QRect& exposed, MinimapScale scale) const;

    // The surface pixels that the dots of a rectangle of cells cover.
    static QRect pixelsOf(const QRect& cells) {
        return {cells.x() * MinimapCellSize - MinimapDotReach,
                cells.y() * MinimapCellSize - MinimapDotReach, cells.width() * MinimapCellSize,
                cells.height() * MinimapCellSize};
    }

    // Exchanges what the two surfaces show, sizes, dots and drawing colour; each keeps its
    // change listener, and neither tells.
    void swapDots(MinimapCanvas& other) noexcept;
    // Told the cells of every change, the margin's included.
    void setChangeListener(std::function<void(const QRect&)> listener) {
        changed = std::move(listener);
    }

  private:
    int width = 0;
    int height = 0;
    QRgb drawing;
    // Whether a block of dots may hold more than floor: set by every dot drawn in another
    // colour, cleared only when its whole row is drawn again. The shrunk minimap blends only
    // these blocks, so a mostly floor level costs little more than what is on it.
    static constexpr int BlockDots = 16;
    int blocksPerRow() const { return width / BlockDots + 1; }
    void markBlocks(int y, int end);
    void rowDrawn(int y, int drawn);  // marks dots 0..drawn - 1 of row y and tells the change
    void markFigures(QImage& image, const QRect& area, MinimapScale scale) const;

    // A dot is kept as its colour's place in `colours`, a byte: the dots of a 1000 x 1000
    // level take 1 MB, not 4. The colours are those of the codes, under ten, so a short search
    // finds them; the background is always the first.
    std::vector<QRgb> colours{MinimapBackground};
    std::vector<quint8, GridAllocator<quint8>> dots;  // (width + 1) x (height + 1)
    std::vector<quint8> notAllFloor;                  // blocksPerRow() x (height + 1)
    std::function<void(const QRect&)> changed;
};
