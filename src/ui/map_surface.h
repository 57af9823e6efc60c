#pragma once

#include "mouse_surface.h"
#include "zoomed_tiles.h"

class MapCanvas;
class SpriteSheet;

// The full-size map: shows its canvas, painting only the exposed part.
class MapSurface : public MouseSurface {
    Q_OBJECT

  public:
    MapSurface(QWidget* parent, const MapCanvas& canvas, const SpriteSheet& sheet);
    // Schedules the repaint of these map cells.
    void showChangedCells(const QRegion& cells);
    // Zoomed out, the canvas is painted with the cells this step's size; 0 is full size.
    void setZoomStep(int step);
    // While deferred, changes of the canvas schedule nothing; resuming repaints everything.
    void deferUpdates(bool defer);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const MapCanvas& canvas;
    const SpriteSheet& sheet;
    ZoomedTiles zoomedTiles{sheet};
    QImage composed;  // the zoomed-out map's exposed part, composed before it is drawn
    int zoomStep = 0;
    bool deferred = false;
};
