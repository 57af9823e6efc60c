#pragma once

#include <QColor>
#include <QRect>

#include <functional>
#include <vector>

class QPainter;

inline constexpr int MinimapCellSize = 6;
inline constexpr QRgb MinimapBackground = qRgb(184, 221, 239);

// What the minimap surface shows: one dot colour per level cell, including the margin column
// and row whose dots are half on the surface, and the persistent drawing colour.
class MinimapCanvas {
  public:
    explicit MinimapCanvas(QRgb initialDrawingColour = qRgb(0, 0, 0))
        : drawing(initialDrawingColour) {}

    // A surface 6 * columns x 6 * rows pixels: all background when the size changes, kept as
    // it is when it does not.
    void resize(int columns, int rows);
    // Fills with the background; the drawing colour stays as it was.
    void clear();
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
    // One dot in its own colour; the drawing colour stays.
    void setDot(int x, int y, QRgb colour);
    QRgb dotAt(int x, int y) const;   // background for cells never dotted since the clear
    const QRgb* dotRow(int y) const;  // dots (0, y) .. (columns(), y), for 0 <= y <= rows()

    // Paints the part `exposed` (surface pixels); cost follows the exposed area.
    void paint(QPainter& painter, const QRect& exposed) const;

    void setChangeListener(std::function<void(const QRect&)> listener) {
        changed = std::move(listener);
    }

  private:
    int width = 0;
    int height = 0;
    QRgb drawing;
    std::vector<QRgb> dots;  // (width + 1) x (height + 1)
    std::function<void(const QRect&)> changed;
};
