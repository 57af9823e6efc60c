#include "map_viewport.h"

#include "block_preview.h"
#include "cell_region.h"
#include "editor_look.h"
#include "editor_texts.h"
#include "level_document.h"
#include "map_canvas.h"
#include "map_geometry.h"
#include "map_surface.h"
#include "outline_shape.h"
#include "tools.h"

#include <QCursor>
#include <QLabel>
#include <QWheelEvent>

#include <algorithm>

MapViewport::MapViewport(QWidget* parent, LevelDocument& document)
    : QFrame(parent), document(document) {
    setObjectName(QStringLiteral("mapViewport"));
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(2);
    setColour(this, QPalette::Window, QColor(0, 0, 64));
    setAutoFillBackground(true);
    setPlacement({584, 248, 649, 497});
    client = new QWidget(this);
    client->setGeometry(contentsRect());
    mapSurface = new MapSurface(client, document.map(), document.sheet());
    mapSurface->setPlacement({48, 104, 392.8f, 320.8f});
    connect(&document, &LevelDocument::cellsChanged, mapSurface, &MapSurface::showChangedCells);
    connect(mapSurface, &MouseSurface::pressed, this, &MapViewport::mapPressed);
    connect(mapSurface, &MouseSurface::moved, this, &MapViewport::mapMoved);
    connect(mapSurface, &MouseSurface::released, this, &MapViewport::mapReleased);
    // After an undo or redo the cell painted last may have changed: a click on it paints again.
    connect(&document, &LevelDocument::steppedThroughHistory, this,
            [this] { lastPaintedCell.reset(); });
    cursorOutline =
        new OutlineShape(mapSurface, QColor(0, 0, 255), QStringLiteral("cursorOutline"));
    cursorOutline->setPlacement({0, 0, 51.2f, 51.2f});
    rectangleOutline =
        new OutlineShape(mapSurface, QColor(255, 255, 0), QStringLiteral("rectangleOutline"));
    rectangleOutline->hide();
    selectionOutline =
        new OutlineShape(mapSurface, QColor(255, 255, 255), QStringLiteral("selectionOutline"));
    selectionOutline->setDashed(true);
    selectionOutline->hide();
    blockPreview = new BlockPreview(mapSurface, document.sheet());
    // A new or opened level, or one that undo brings back, may be of another size.
    connect(&document, &LevelDocument::levelReplaced, this, [this] {
        clearSelection();
        dropBlock();
    });
    // The loading label lies on the viewport itself, under the map: seen only while the map
    // is hidden for a redraw.
    loadingLabel = new QLabel(EditorTexts::Loading, client);
    loadingLabel->setObjectName(QStringLiteral("loadingLabel"));
    loadingLabel->setGeometry(Placement{40, 40, 246, 37}.rounded());
    loadingLabel->setFont(boldSansSerif(24));
    shrinkToFitWhenDrawn(loadingLabel);
    setColour(loadingLabel, QPalette::WindowText, QColor(0, 0, 255));
    loadingLabel->lower();
    loadingLabel->hide();
}

bool MapViewport::setPlacement(const Placement& next) {
    if (!placeWidget(this, place, next)) return false;
    if (client) client->setGeometry(contentsRect());
    return true;
}

const Placement& MapViewport::mapPlacement() const {
    return mapSurface->placement();
}

void MapViewport::moveMapTo(QPointF topLeft) {
    moveMap(static_cast<float>(topLeft.x()), static_cast<float>(topLeft.y()));
}

void MapViewport::setTool(int code) {
    tool = code;
    const QSize cells = toolFootprint(code);
    Placement outline = cursorOutline->placement();
    outline.width = static_cast<float>(tileSize() * cells.width());
    outline.height = static_cast<float>(tileSize() * cells.height());
    cursorOutline->setPlacement(outline);
}

void MapViewport::fitMapToLevel() {
    zoomStep = std::min(zoomStep, widestZoomStep());
    mapSurface->setZoomStep(zoomStep);
    setTool(tool);
    mapSurface->setPlacement(levelMapAt(0, 0));
    showSelection();
    if (carriesBlock()) blockPreview->showAt(carriedCell, zoomStep);
}

// The whole level's map at the current zoom step, its top-left corner at (left, top).
Placement MapViewport::levelMapAt(float left, float top) const {
    const auto tile = static_cast<float>(tileSize());
    return {left, top, tile * static_cast<float>(document.level().width()),
            tile * static_cast<float>(document.level().height())};
}

// The first step out at which the whole level fits the viewport's inside, or the last.
int MapViewport::widestZoomStep() const {
    const int columns = document.level().width();
    const int rows = document.level().height();
    int step = 0;
    while (step + 1 < ZoomStepCount && (columns * tileSizeAt(step) > client->width() ||
                                        rows * tileSizeAt(step) > client->height()))
        ++step;
    return step;
}

void MapViewport::zoomTo(int step, QPointF anchor) {
    step = std::clamp(step, 0, widestZoomStep());
    if (step == zoomStep) return;
    const auto before = static_cast<float>(tileSize());
    zoomStep = step;
    const auto now = static_cast<float>(tileSize());
    mapSurface->setZoomStep(step);
    const Placement map = mapSurface->placement();
    const auto keep = [&](float start, qreal at) {
        const auto point = static_cast<float>(at);
        return point - (point - start) / before * now;
    };
    mapSurface->setPlacement(levelMapAt(keep(map.left, anchor.x()), keep(map.top, anchor.y())));
    cancelRectangle();
    showSelection();
    if (carriesBlock()) blockPreview->showAt(carriedCell, zoomStep);
    setTool(tool);
    Placement outline = cursorOutline->placement();
    outline.left = outline.left / before * now;
    outline.top = outline.top / before * now;
    cursorOutline->setPlacement(outline);
    emit viewMoved();
}

QPointF MapViewport::clientCentre() const {
    return {client->width() / 2.0, client->height() / 2.0};
}

void MapViewport::zoomBy(int steps) {
    zoomTo(zoomStep + steps, clientCentre());
}

void MapViewport::zoomToFullSize() {
    zoomTo(0, clientCentre());
}

void MapViewport::zoomToWholeLevel() {
    zoomTo(widestZoomStep(), clientCentre());
    moveMap(0, 0);
}

QPointF MapViewport::zoomed(QPointF fullSizePoint) const {
    if (zoomStep == 0) return fullSizePoint;
    return fullSizePoint * tileSize() / TileSize;
}

void MapViewport::showLoading() {
    mapSurface->hide();
    loadingLabel->show();
    repaint();  // the loading label shows before the long work
}

void MapViewport::deferUpdates(bool defer) {
    mapSurface->deferUpdates(defer);
}

void MapViewport::showMap() {
    mapSurface->show();
    loadingLabel->hide();
    show();
}

void MapViewport::mapPressed(Qt::MouseButtons button, QPointF position,
                             Qt::KeyboardModifiers modifiers) {
    const auto x = static_cast<float>(position.x());
    const auto y = static_cast<float>(position.y());
    const QPoint cell(cellUnder(x, tileSize()), cellUnder(y, tileSize()));
    if (button == Qt::RightButton) {
        mapGrabPoint = QPointF(static_cast<float>(position.x()), static_cast<float>(position.y()));
        selecting = (modifiers & Qt::ShiftModifier) != 0;
        if (selecting) {
            selectionCorner = cell;
            selectTo(x, y);
        }
        return;
    }
    if (button != Qt::LeftButton) return;
    if (carriesBlock()) {
        leftDrag = LeftDrag::Ignored;
        document.placeBlock(blockPreview->block(), carriedCell);
        lastPaintedCell.reset();
        return dropBlock();
    }
    if (!(modifiers & (Qt::ShiftModifier | Qt::ControlModifier))) clearSelection();
    if (modifiers & Qt::ControlModifier) {
        leftDrag = LeftDrag::Ignored;
        document.floodFill(cell, tool);
        lastPaintedCell.reset();  // the fill may have changed it
    } else if ((modifiers & Qt::ShiftModifier) && toolKind(tool) != ToolKind::Hero) {
        leftDrag = LeftDrag::Rectangle;
        rectangleCorner = rectangleEnd = cell;
        dragRectangleTo(x, y);
        rectangleOutline->show();
    } else {
        leftDrag = LeftDrag::Stroke;
        document.beginStroke();
        mapMoved(button, position);  // a single click paints
    }
}

void MapViewport::mapReleased(Qt::MouseButtons button) {
    if (button == Qt::RightButton) selecting = false;
    if (button != Qt::LeftButton) return;
    if (leftDrag == LeftDrag::Stroke) document.endStroke();
    if (leftDrag == LeftDrag::Rectangle) {
        rectangleOutline->hide();
        document.fillRectangle(rectangleCorner, rectangleEnd, tool);
        lastPaintedCell.reset();
    }
    leftDrag = LeftDrag::None;
}

void MapViewport::cancelRectangle() {
    if (leftDrag != LeftDrag::Rectangle) return;
    rectangleOutline->hide();
    leftDrag = LeftDrag::Ignored;
}

void MapViewport::mapMoved(Qt::MouseButtons buttons, QPointF position) {
    const auto x = static_cast<float>(position.x());
    const auto y = static_cast<float>(position.y());
    if (buttons == Qt::RightButton && selecting) {
        selectTo(x, y);
    } else if (buttons == Qt::RightButton) {
        const Placement map = mapSurface->placement();
        moveMap(map.left + x - static_cast<float>(mapGrabPoint.x()),
                map.top + y - static_cast<float>(mapGrabPoint.y()));
    } else if (buttons == Qt::LeftButton && leftDrag == LeftDrag::Rectangle) {
        dragRectangleTo(x, y);
    } else if (buttons == Qt::LeftButton &&
               (leftDrag == LeftDrag::Stroke || leftDrag == LeftDrag::None)) {
        // Outside the frame's inside a stroke paints nothing and the outline stays put.
        if (!paintAt(x, y)) return;
    }
    if (carriesBlock()) carryTo(x, y, buttons != Qt::RightButton);
    moveOutline(x, y);
}

bool MapViewport::paintAt(float x, float y) {
    const QPoint cell(cellUnder(x, tileSize()), cellUnder(y, tileSize()));
    if (!isInsideFrame(document.level(), cell.x(), cell.y())) return false;
    if (lastPaintedCell == cell) return true;
    document.applyTool(cell.x(), cell.y(), tool);
    lastPaintedCell = cell;
    scrollTowards(x, y);
    return true;
}

// The outline covers the rectangle's cells on the level; a new corner cell scrolls the map
// at the edges as painting does.
void MapViewport::dragRectangleTo(float x, float y) {
    const QPoint cell(cellUnder(x, tileSize()), cellUnder(y, tileSize()));
    const bool moved = cell != rectangleEnd;
    rectangleEnd = cell;
    const QRect level(0, 0, document.level().width(), document.level().height());
    const QRect cells = cellsBetween(rectangleCorner, cell) & level;
    const QRect pixels = MapCanvas::pixelsOf(cells, tileSize());
    rectangleOutline->setPlacement(
        {float(pixels.x()), float(pixels.y()), float(pixels.width()), float(pixels.height())});
    if (moved) scrollTowards(x, y);
}

void MapViewport::scrollTowards(float x, float y) {
    const Placement scrolled =
        scrollAtEdges(mapSurface->placement(), x, y, place.width, place.height);
    moveMap(scrolled.left, scrolled.top);
}

void MapViewport::minimapPressed(Qt::MouseButtons button, QPointF mapPoint) {
    const QPointF point = zoomed(mapPoint);
    // A carried block is laid where the minimap was pressed.
    if (carriesBlock() && button == Qt::LeftButton)
        carryTo(static_cast<float>(point.x()), static_cast<float>(point.y()), false);
    mapPressed(button, point);
}

void MapViewport::minimapDragged(Qt::MouseButtons buttons, QPointF mapPoint) {
    const QPointF point = zoomed(mapPoint);
    moveMap(-static_cast<float>(point.x()) + place.width / 2,
            -static_cast<float>(point.y()) + place.height / 2);
    if (buttons == Qt::LeftButton) mapMoved(buttons, point);
}

void MapViewport::wheelEvent(QWheelEvent* event) {
    QPoint turned = event->angleDelta();
    if (event->modifiers() & Qt::ControlModifier) {  // a notch a step, round the pointer
        if (turned.y() != 0)
            zoomTo(zoomStep + (turned.y() < 0 ? 1 : -1), client->mapFrom(this, event->position()));
        return event->accept();
    }
    if (event->modifiers() & Qt::ShiftModifier) turned = {turned.x() + turned.y(), 0};
    // A notch is 120; the map's far edge may come to the viewport's inner edge, no further.
    const float PixelsPerEighth = static_cast<float>(tileSize()) / 120.0f;
    const Placement map = mapSurface->placement();
    moveMap(scrolledWithin(map.left, PixelsPerEighth * static_cast<float>(turned.x()),
                           static_cast<float>(client->width()) - map.width, 0),
            scrolledWithin(map.top, PixelsPerEighth * static_cast<float>(turned.y()),
                           static_cast<float>(client->height()) - map.height, 0));
    // The outline follows the cell that has come under the pointer.
    const QPointF pointer = mapSurface->placed(mapSurface->mapFrom(this, event->position()));
    if (mapSurface->rect().contains(pointer.toPoint()))
        moveOutline(static_cast<float>(pointer.x()), static_cast<float>(pointer.y()));
    event->accept();
}

void MapViewport::moveMap(float left, float top) {
    mapSurface->movePlacement(left, top);
    followBeforeNextFrame();
    emit viewMoved();
}

void MapViewport::moveOutline(float x, float y) {
    cursorOutline->movePlacement(static_cast<float>(cellUnder(x, tileSize()) * tileSize()),
                                 static_cast<float>(cellUnder(y, tileSize()) * tileSize()));
    followBeforeNextFrame();
}

// The map and the outline take their new places at once, for the mouse and everything that
// reads them; their widgets follow together just before the next frame. However many mouse
// events come in between, the window then scrolls its pixels once: the map moves first, while
// nothing over it waits to be repainted, so the shown part is moved rather than drawn again.
void MapViewport::followBeforeNextFrame() {
    if (followQueued) return;
    followQueued = true;
    // A posted call runs when the mouse events being taken are done, and before the window's
    // update request, which is posted at a lower priority.
    QMetaObject::invokeMethod(
        this,
        [this] {
            followQueued = false;
            mapSurface->followPlacement();
            cursorOutline->followPlacement();
        },
        Qt::QueuedConnection);
}

void MapViewport::cancel() {
    if (carriesBlock()) return dropBlock();
    if (leftDrag == LeftDrag::Rectangle) return cancelRectangle();
    clearSelection();
}

// The selection is never empty: cells outside the frame's inside are left out, and a drag
// over none of them selects nothing.
void MapViewport::selectTo(float x, float y) {
    const QPoint cell(cellUnder(x, tileSize()), cellUnder(y, tileSize()));
    const QRect cells = cellsBetween(selectionCorner, cell) & cellsInsideFrame(document.level());
    select(cells.isEmpty() ? std::nullopt : std::optional(cells));
}

void MapViewport::selectAll() {
    const QRect cells = cellsInsideFrame(document.level());
    select(cells.isEmpty() ? std::nullopt : std::optional(cells));
}

void MapViewport::clearSelection() {
    select(std::nullopt);
}

void MapViewport::select(std::optional<QRect> cells) {
    if (cells == selected) return;
    selected = cells;
    showSelection();
    emit selectionChanged(selected);
}

void MapViewport::showSelection() {
    selectionOutline->setVisible(selected.has_value());
    if (!selected) return;
    const QRect pixels = MapCanvas::pixelsOf(*selected, tileSize());
    selectionOutline->setPlacement(
        {float(pixels.x()), float(pixels.y()), float(pixels.width()), float(pixels.height())});
    selectionOutline->raise();
}

void MapViewport::carryBlock(const LevelBlock& block) {
    if (block.isEmpty()) return;
    cancelRectangle();
    blockPreview->setBlock(block);
    const QPointF pointer = mapSurface->placed(mapSurface->mapFromGlobal(QCursor::pos()));
    carriedCell = QPoint(cellUnder(static_cast<float>(pointer.x()), tileSize()),
                         cellUnder(static_cast<float>(pointer.y()), tileSize()));
    blockPreview->showAt(carriedCell, zoomStep);
    blockPreview->show();
    blockPreview->raise();
}

bool MapViewport::carriesBlock() const {
    return !blockPreview->block().isEmpty();
}

void MapViewport::dropBlock() {
    blockPreview->hide();
    blockPreview->setBlock({});
}

// A new cell scrolls the map at the edges, as painting one does.
void MapViewport::carryTo(float x, float y, bool scroll) {
    const QPoint cell(cellUnder(x, tileSize()), cellUnder(y, tileSize()));
    if (cell == carriedCell) return;
    carriedCell = cell;
    blockPreview->showAt(cell, zoomStep);
    if (scroll) scrollTowards(x, y);
}
