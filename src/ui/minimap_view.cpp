#include "minimap_view.h"

#include "map_canvas.h"
#include "map_geometry.h"
#include "minimap_canvas.h"
#include "outline_shape.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr float ThinnestViewFrame = 5;
// A full-size minimap coordinate as the map coordinate it stands for.
float onMap(float minimapCoordinate) {
    return minimapCoordinate / static_cast<float>(MinimapCellSize) * static_cast<float>(TileSize);
}
}  // namespace

MinimapView::MinimapView(QWidget* parent, const MinimapCanvas& canvas)
    : MouseSurface(parent, QColor(MinimapBackground), QStringLiteral("minimapSurface")),
      canvas(canvas) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    viewFrame = new OutlineShape(this, QColor(255, 0, 0), QStringLiteral("minimapViewFrame"));
    viewFrame->setPlacement({48, 16, 32.8f, 32.8f});
    selectionFrame =
        new OutlineShape(this, QColor(255, 255, 255), QStringLiteral("minimapSelectionFrame"));
    selectionFrame->setDashed(true);
    selectionFrame->hide();
    connect(this, &MouseSurface::pressed, this, &MinimapView::minimapPressed);
    connect(this, &MouseSurface::moved, this, &MinimapView::minimapMoved);
}

void MinimapView::showChangedCells(const QRegion& cells) {
    if (deferred) return;
    for (const QRect& changedCells : cells) {
        const QRect pixels = MinimapCanvas::pixelsOf(changedCells);
        // A figure's square reaches a pixel beyond its cell.
        const QRect changed =
            shown.isFull() ? pixels : shown.shownRect(pixels).adjusted(-1, -1, 1, 1);
        if (!shown.isFull()) stale += changed;
        update(changed);
    }
}

void MinimapView::deferUpdates(bool defer) {
    deferred = defer;
    if (defer) return;
    allStale = true;
    update();
}

void MinimapView::setScale(MinimapScale scale) {
    shown = scale;
    allStale = true;
    showSelection(selected);
}

void MinimapView::showSelection(std::optional<QRect> cells) {
    selected = cells;
    selectionFrame->setVisible(cells.has_value());
    if (!cells) return;
    const QRect dots = MinimapCanvas::pixelsOf(*cells);
    const auto across = [&](int at) { return shown.across.toShown(static_cast<float>(at)); };
    const auto down = [&](int at) { return shown.down.toShown(static_cast<float>(at)); };
    const float left = across(dots.left());
    const float top = down(dots.top());
    // At least a pixel and the frame's two edges a side, however far the minimap is shrunk.
    selectionFrame->setPlacement({left, top, std::max(across(dots.right() + 1) - left, 2.0f),
                                  std::max(down(dots.bottom() + 1) - top, 2.0f)});
}

QSizeF MinimapView::shownSize(int columns, int rows) const {
    const float dot = MinimapCellSize;
    return {shown.across.toShown(dot * static_cast<float>(columns)),
            shown.down.toShown(dot * static_cast<float>(rows))};
}

void MinimapView::showViewFrame(const Placement& frame) {
    if (shown.isFull()) {
        viewFrame->setInnerColour({});
        return viewFrame->setPlacement(frame);
    }
    // On a shrunk minimap the frame may cover a pixel or two: it is drawn at least
    // ThinnestViewFrame a side round its centre, red with white inside, seen on every dot.
    Placement scaled{shown.across.toShown(frame.left), shown.down.toShown(frame.top),
                     shown.across.toShown(frame.width), shown.down.toShown(frame.height)};
    const auto widen = [](float& start, float& length) {
        if (length >= ThinnestViewFrame) return;
        start -= (ThinnestViewFrame - length) / 2;
        length = ThinnestViewFrame;
    };
    widen(scaled.left, scaled.width);
    widen(scaled.top, scaled.height);
    viewFrame->setInnerColour(QColor(255, 255, 255));
    viewFrame->setPlacement(scaled);
}

QPointF MinimapView::onMap(QPointF position) const {
    const QPointF full = shown.toFull(position);
    return {::onMap(static_cast<float>(full.x())), ::onMap(static_cast<float>(full.y()))};
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
    if (!QRect(QPoint(0, 0), canvas.shownSize(shown)).contains(exposed))
        painter.fillRect(exposed, QColor(MinimapBackground));
    if (shown.isFull()) return canvas.paint(painter, exposed);
    if (shrunk.size() != canvas.shownSize(shown) || allStale) {
        shrunk = QImage(canvas.shownSize(shown), QImage::Format_RGB32);
        stale = shrunk.rect();
        allStale = false;
    }
    if (const QRegion due = stale.intersected(exposed); !due.isEmpty()) {
        QPainter blending(&shrunk);
        for (const QRect& part : due) canvas.paintScaled(blending, part, shown);
        stale -= due;
    }
    const QRect shownPart = exposed & shrunk.rect();
    painter.drawImage(shownPart.topLeft(), shrunk, shownPart);
}
