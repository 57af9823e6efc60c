#pragma once

#include "picture_box.h"

class MapCanvas;
class MinimapCanvas;
class SpriteSheet;

// The map surface: shows its canvas, painting only the exposed part.
class MapSurface : public PictureBox {
    Q_OBJECT

  public:
    MapSurface(QWidget* parent, MapCanvas& canvas, const SpriteSheet& sheet);
    // While deferred, changes of the canvas schedule nothing; resuming repaints everything.
    void deferUpdates(bool defer);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    MapCanvas& canvas;
    const SpriteSheet& sheet;
    bool deferred = false;
};

// The minimap surface: one dot per level cell.
class MinimapSurface : public PictureBox {
    Q_OBJECT

  public:
    MinimapSurface(QWidget* parent, MinimapCanvas& canvas);
    void deferUpdates(bool defer);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    MinimapCanvas& canvas;
    bool deferred = false;
};

// A 1-pixel rectangle outline over a surface; the mouse goes through it.
class OutlineShape : public QWidget {
    Q_OBJECT

  public:
    OutlineShape(QWidget* parent, QColor colour, const char* name);
    const Placement& placement() const { return place; }
    void move(const Placement& next) { placeWidget(this, place, next); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour;
    Placement place;
};
