#include "map_surface.h"

#include "map_canvas.h"

#include <QPaintEvent>
#include <QPainter>

MapSurface::MapSurface(QWidget* parent, const MapCanvas& canvas, const SpriteSheet& sheet)
    : MouseSurface(parent, QColor(MapBackground), QStringLiteral("mapSurface")),
      canvas(canvas),
      sheet(sheet) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MapSurface::showChangedCells(const QRect& cells) {
    if (!deferred) update(MapCanvas::pixelsOf(cells));
}

void MapSurface::deferUpdates(bool defer) {
    deferred = defer;
    if (!defer) update();
}

void MapSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    if (!QRect(QPoint(0, 0), canvas.pixelSize()).contains(exposed))
        painter.fillRect(exposed, QColor(MapBackground));
    canvas.paint(painter, exposed, sheet);
}
