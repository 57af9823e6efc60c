#include "canvas_surfaces.h"

#include "map_canvas.h"
#include "minimap_canvas.h"
#include "sprite_sheet.h"

#include <QPaintEvent>
#include <QPainter>

MapSurface::MapSurface(QWidget* parent, MapCanvas& canvas, const SpriteSheet& sheet)
    : PictureBox(parent, QColor(MapBackground), "Picture2"), canvas(canvas), sheet(sheet) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    canvas.setChangeListener([this](const QRect& pixels) {
        if (!deferred) update(pixels);
    });
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

MinimapSurface::MinimapSurface(QWidget* parent, MinimapCanvas& canvas)
    : PictureBox(parent, QColor(MinimapBackground), "Picture3"), canvas(canvas) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    canvas.setChangeListener([this](const QRect& pixels) {
        if (!deferred) update(pixels);
    });
}

void MinimapSurface::deferUpdates(bool defer) {
    deferred = defer;
    if (!defer) update();
}

void MinimapSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    if (!QRect(QPoint(0, 0), canvas.pixelSize()).contains(exposed))
        painter.fillRect(exposed, QColor(MinimapBackground));
    canvas.paint(painter, exposed);
}

OutlineShape::OutlineShape(QWidget* parent, QColor colour, const char* name)
    : QWidget(parent), colour(colour) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void OutlineShape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(colour);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
