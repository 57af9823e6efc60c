#pragma once

#include "level_block.h"
#include "placement.h"
#include "zoomed_tiles.h"

#include <QFrame>
#include <QPoint>
#include <QRect>

#include <optional>

class BlockPreview;
class LevelDocument;
class MapSurface;
class OutlineShape;
class QLabel;

// The window onto the full-size map. The left button paints the selected tool inside the
// wall frame, scrolling the map when the pointer nears an edge; the right button drags the
// map; a blue outline shows the cells the tool would cover.
class MapViewport : public QFrame {
    Q_OBJECT

  public:
    MapViewport(QWidget* parent, LevelDocument& document);

    const Placement& placement() const { return place; }
    // Moves and sizes the viewport; a negative size is rejected and changes nothing.
    bool setPlacement(const Placement& next);
    const Placement& mapPlacement() const;
    // Puts the map's top-left corner at this point of the viewport.
    void moveMapTo(QPointF topLeft);

    // The tool painted from now on; the outline takes its size.
    void setTool(int code);
    // Sizes the map for the document's level, at the top-left of the viewport, zoomed out no
    // further than the level needs.
    void fitMapToLevel();

    // Zoom: a cell 64 pixels a side at step 0, halved at each step out, down to one pixel, and
    // never further out than the step that shows the whole level. Zooming keeps the level's
    // point under `anchor` (a point of the viewport's inside) where it is.
    int tileSize() const { return tileSizeAt(zoomStep); }
    void zoomTo(int step, QPointF anchor);
    void zoomBy(int steps);   // round the viewport's centre; + is out
    void zoomToFullSize();    // round the viewport's centre
    void zoomToWholeLevel();  // the nearest step that shows the whole level, from its corner
    // While loading, the map is hidden, the loading label shows and canvas changes schedule
    // no repaint; afterwards the map shows again, repainted whole.
    void showLoading();
    void deferUpdates(bool defer);
    void showMap();

    // The mouse on the map, in map pixels; the minimap hands on its own presses and drags as
    // the full-size map points they stand for. A left-button stroke runs from the press to the
    // release. With Shift, the left button drags a rectangle that the release fills with the tool
    // (the hero tool paints as without Shift); with Ctrl, a left click flood-fills.
    void mapPressed(Qt::MouseButtons button, QPointF position,
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void mapMoved(Qt::MouseButtons buttons, QPointF position);
    void mapReleased(Qt::MouseButtons button);
    // Esc: a rectangle being dragged is dropped unfilled.
    void cancelRectangle();
    // Esc as a whole: a carried block is dropped, else a rectangle being dragged, else the
    // selection is cleared.
    void cancel();

    // Shift with the right button drags a selection over the cells inside the frame, as a
    // dashed outline; a plain left click clears it. Selecting changes no cell and is no step.
    std::optional<QRect> selection() const { return selected; }
    void selectAll();
    void clearSelection();
    // A block picked up follows the pointer cell by cell, its top-left cell under it, and the
    // map scrolls at the edges as while painting; a left click lays it there.
    void carryBlock(const LevelBlock& block);
    bool carriesBlock() const;
    void dropBlock();
    void minimapPressed(Qt::MouseButtons button, QPointF mapPoint);
    void minimapDragged(Qt::MouseButtons buttons, QPointF mapPoint);

  signals:
    // The map moved inside the viewport, or the viewport changed its size.
    void viewMoved();
    // The selected cells, or none.
    void selectionChanged(std::optional<QRect> cells);

  protected:
    // The wheel moves the map a cell a notch, down and up, or sideways with Shift, never past
    // the level's edges.
    void wheelEvent(QWheelEvent* event) override;

  private:
    void moveMap(float left, float top);  // and tells viewMoved
    void moveOutline(float x, float y);
    void followBeforeNextFrame();
    bool paintAt(float x, float y);  // false outside the frame's inside
    void dragRectangleTo(float x, float y);
    void scrollTowards(float x, float y);
    void selectTo(float x, float y);
    void select(std::optional<QRect> cells);
    void showSelection();
    void carryTo(float x, float y, bool scroll);
    int widestZoomStep() const;
    Placement levelMapAt(float left, float top) const;
    QPointF zoomed(QPointF fullSizePoint) const;
    QPointF clientCentre() const;

    LevelDocument& document;
    Placement place;
    QWidget* client = nullptr;  // the inside of the sunken border, holding the map
    MapSurface* mapSurface;
    OutlineShape* cursorOutline;
    OutlineShape* rectangleOutline;
    OutlineShape* selectionOutline;
    BlockPreview* blockPreview;
    QLabel* loadingLabel;
    int tool = 0;
    int zoomStep = 0;
    bool followQueued = false;
    QPointF mapGrabPoint;
    std::optional<QPoint> lastPaintedCell;
    // What moves with the left button held do: paint (also with no press seen, as ever), drag
    // a rectangle, or nothing until the release (after a flood fill or a dropped rectangle).
    enum class LeftDrag { None, Stroke, Rectangle, Ignored };
    LeftDrag leftDrag = LeftDrag::None;
    QPoint rectangleCorner;  // the press cell of a rectangle
    QPoint rectangleEnd;     // the cell under the pointer
    std::optional<QRect> selected;
    bool selecting = false;  // the right button drags a selection, not the map
    QPoint selectionCorner;  // its press cell
    QPoint carriedCell;      // where a carried block's top-left cell is
};
