#pragma once

#include "mouse_surface.h"

class MapCanvas;
class SpriteSheet;

// The full-size map: shows its canvas, painting only the exposed part.
class MapSurface : public MouseSurface {
    Q_OBJECT

  public:
    MapSurface(QWidget* parent, const MapCanvas& canvas, const SpriteSheet& sheet);
    // Schedules the repaint of these map cells.
    void showChangedCells(const QRect& cells);
    // While deferred, changes of the canvas schedule nothing; resuming repaints everything.
    void deferUpdates(bool defer);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const MapCanvas& canvas;
    const SpriteSheet& sheet;
    bool deferred = false;
};
