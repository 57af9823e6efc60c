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

void MapSurface::showChangedCells(const QRegion& cells) {
    if (deferred) return;
    for (const QRect& changed : cells) update(MapCanvas::pixelsOf(changed, tileSizeAt(zoomStep)));
}

void MapSurface::setZoomStep(int step) {
    if (step == zoomStep) return;
    zoomStep = step;
    update();
}

void MapSurface::deferUpdates(bool defer) {
    deferred = defer;
    if (!defer) update();
}

void MapSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    const int tile = tileSizeAt(zoomStep);
    if (!MapCanvas::pixelsOf(QRect(0, 0, canvas.columns(), canvas.rows()), tile).contains(exposed))
        painter.fillRect(exposed, QColor(MapBackground));
    if (zoomStep == 0)
        canvas.paint(painter, exposed, sheet);
    else
        canvas.paintZoomed(painter, exposed, zoomedTiles.at(zoomStep), tile, composed);
}
