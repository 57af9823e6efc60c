#pragma once

#include "minimap_canvas.h"
#include "mouse_surface.h"

#include <QImage>
#include <QRegion>

#include <optional>

class OutlineShape;
struct Placement;

// The minimap: one dot per level cell, with a red frame round the part of the map the
// viewport shows. A press or a drag on it stands for the same point on the map. A large
// level's minimap is shown smaller; the frame and the points follow the same scale.
class MinimapView : public MouseSurface {
    Q_OBJECT

  public:
    MinimapView(QWidget* parent, const MinimapCanvas& canvas);
    // Schedules the repaint of the dots of these cells.
    void showChangedCells(const QRegion& cells);
    // While deferred, changes of the canvas schedule nothing; resuming repaints everything.
    void deferUpdates(bool defer);
    // The scale of the level about to be drawn; the size that goes with it.
    void setScale(MinimapScale scale);
    MinimapScale scale() const { return shown; }
    QSizeF shownSize(int columns, int rows) const;
    // Where the frame lies on the full-size minimap; it is shown at the minimap's scale.
    void showViewFrame(const Placement& frame);
    // The map's selected cells as an outline, or none.
    void showSelection(std::optional<QRect> cells);

  signals:
    void mapPointPressed(Qt::MouseButtons button, QPointF mapPoint);
    void mapPointDragged(Qt::MouseButtons buttons, QPointF mapPoint);  // a button held

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void minimapPressed(Qt::MouseButtons button, QPointF position);
    void minimapMoved(Qt::MouseButtons buttons, QPointF position);
    QPointF onMap(QPointF position) const;

    const MinimapCanvas& canvas;
    OutlineShape* viewFrame;
    OutlineShape* selectionFrame;
    std::optional<QRect> selected;
    MinimapScale shown;
    bool deferred = false;
    // A shrunk minimap is kept as shown; only the pixels of changed dots are blended again.
    QImage shrunk;
    QRegion stale;
    bool allStale = true;
};
