#include "minimap_view.h"

#include "map_canvas.h"
#include "map_geometry.h"
#include "minimap_canvas.h"
#include "outline_shape.h"

#include <QPaintEvent>
#include <QPainter>

namespace {
// A minimap coordinate as the map coordinate it stands for.
float onMap(double minimapCoordinate) {
    return static_cast<float>(minimapCoordinate) / static_cast<float>(MinimapCellSize) *
           static_cast<float>(TileSize);
}
QPointF onMap(QPointF position) {
    return {onMap(position.x()), onMap(position.y())};
}
}  // namespace

MinimapView::MinimapView(QWidget* parent, MinimapCanvas& canvas)
    : MouseSurface(parent, QColor(MinimapBackground), QStringLiteral("minimapSurface")),
      canvas(canvas) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    canvas.setChangeListener([this](const QRect& pixels) {
        if (!deferred) update(pixels);
    });
    viewFrame = new OutlineShape(this, QColor(255, 0, 0), QStringLiteral("minimapViewFrame"));
    viewFrame->move({48, 16, 32.8f, 32.8f});
    connect(this, &MouseSurface::pressed, this, &MinimapView::minimapPressed);
    connect(this, &MouseSurface::moved, this, &MinimapView::minimapMoved);
}

void MinimapView::deferUpdates(bool defer) {
    deferred = defer;
    if (!defer) update();
}

void MinimapView::showViewFrame(const Placement& frame) {
    viewFrame->move(frame);
}

void MinimapView::minimapPressed(Qt::MouseButtons button, QPointF position) {
    if (button == Qt::LeftButton) emit mapPointPressed(button, onMap(position));
}

void MinimapView::minimapMoved(Qt::MouseButtons buttons, QPointF position) {
    if (buttons != Qt::NoButton) emit mapPointDragged(buttons, onMap(position));
}

void MinimapView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    if (!QRect(QPoint(0, 0), canvas.pixelSize()).contains(exposed))
        painter.fillRect(exposed, QColor(MinimapBackground));
    canvas.paint(painter, exposed);
}
