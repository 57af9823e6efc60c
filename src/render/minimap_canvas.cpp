#include "minimap_canvas.h"

#include <QPainter>

#include <algorithm>

namespace {
// A dot is the 6-pixel square centred on (6x, 6y): pixels 6x - 3 up to 6x + 2.
constexpr int DotReach = MinimapCellSize / 2;

QRect dotRect(int x, int y) {
    return {x * MinimapCellSize - DotReach, y * MinimapCellSize - DotReach, MinimapCellSize,
            MinimapCellSize};
}
// The cell whose dot covers surface pixel p.
int dotIndex(int p) {
    return (p + DotReach) / MinimapCellSize;
}
}  // namespace

void MinimapCanvas::resize(int columns, int rows) {
    width = std::max(columns, 0);
    height = std::max(rows, 0);
    dots.assign(static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1),
                MinimapBackground);
    if (changed) changed(QRect(QPoint(0, 0), pixelSize()));
}

void MinimapCanvas::clear() {
    std::fill(dots.begin(), dots.end(), MinimapBackground);
    if (changed) changed(QRect(QPoint(0, 0), pixelSize()));
}

void MinimapCanvas::drawDot(int x, int y) {
    if (x < 0 || x > width || y < 0 || y > height) return;
    dots[static_cast<std::size_t>(y) * (width + 1) + x] = drawing;
    if (changed) changed(dotRect(x, y));
}

QRgb MinimapCanvas::dotAt(int x, int y) const {
    if (x < 0 || x > width || y < 0 || y > height) return MinimapBackground;
    return dots[static_cast<std::size_t>(y) * (width + 1) + x];
}

void MinimapCanvas::paint(QPainter& painter, const QRect& exposed) const {
    const QRect area = exposed.intersected(QRect(QPoint(0, 0), pixelSize()));
    if (area.isEmpty()) return;
    painter.save();
    painter.setClipRect(area);
    for (int y = dotIndex(area.top()); y <= dotIndex(area.bottom()); ++y) {
        for (int x = dotIndex(area.left()); x <= dotIndex(area.right()); ++x)
            painter.fillRect(dotRect(x, y), QColor(dotAt(x, y)));
    }
    painter.restore();
}
