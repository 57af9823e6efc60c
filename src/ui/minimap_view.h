#pragma once

#include "mouse_surface.h"

class MinimapCanvas;
class OutlineShape;
struct Placement;

// The minimap: one dot per level cell, with a red frame round the part of the map the
// viewport shows. A press or a drag on it stands for the same point on the map.
class MinimapView : public MouseSurface {
    Q_OBJECT

  public:
    MinimapView(QWidget* parent, MinimapCanvas& canvas);
    // While deferred, changes of the canvas schedule nothing; resuming repaints everything.
    void deferUpdates(bool defer);
    void showViewFrame(const Placement& frame);

  signals:
    void mapPointPressed(Qt::MouseButtons button, QPointF mapPoint);
    void mapPointDragged(Qt::MouseButtons buttons, QPointF mapPoint);  // a button held

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void minimapPressed(Qt::MouseButtons button, QPointF position);
    void minimapMoved(Qt::MouseButtons buttons, QPointF position);

    const MinimapCanvas& canvas;
    OutlineShape* viewFrame;
    bool deferred = false;
};
