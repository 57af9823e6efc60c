#pragma once

#include <QByteArray>
#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QString>

#include <cstddef>
#include <optional>

class Level;
class LevelRenderer;

// What the window shows beside the level that New and Open change: the map's place in the
// view, in pixels of cells `tileSize` a side (the size fields show the level's own size).
struct LevelView {
    QPointF mapPosition;
    int tileSize = 64;
};

// A whole level as the editor holds it, kept small: the grid compressed, and a canvas only
// when it shows something a repaint of the grid would not (a dot that inherited its colour, a
// repaint stopped by a code without a picture), as its difference from that repaint.
class LevelSnapshot {
  public:
    LevelSnapshot(const Level& level, const LevelRenderer& renderer);

    // Makes the level and its canvases exactly what they were: the grid is repainted, no frame
    // is drawn. False when a code without a picture stopped the repaint, as it did then.
    bool restore(Level& level, LevelRenderer& renderer) const;
    std::size_t bytes() const;

  private:
    int width;
    int height;
    std::optional<QPoint> hero;
    QRgb drawingColour;
    QByteArray grid;      // every cell, the margin included
    QByteArray mapCells;  // empty when the map shows the grid
    QByteArray dots;      // empty when every dot has its code's own colour
};
