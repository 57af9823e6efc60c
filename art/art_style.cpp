#include "art_style.h"

namespace Art {

QImage floorCell(int seed) {
    QImage cell(Cell, Cell, QImage::Format_RGB32);
    QPainter painter(&cell);
    paintFloor(painter, cell.rect(), seed);
    return cell;
}

void paintFloor(QPainter& painter, const QRect& area, int seed) {
    painter.fillRect(area, FloorSand);
    speckle(painter, area, FloorSand, area.width() * area.height() / 40, seed);
    // Flagstones of half a cell, with a lit top-left edge.
    for (int y = area.top(); y <= area.bottom(); y += Cell / 2) {
        for (int x = area.left(); x <= area.right(); x += Cell / 2) {
            painter.setPen(QPen(FloorGrout, 1));
            painter.drawLine(x, y + Cell / 2 - 1, x + Cell / 2 - 1, y + Cell / 2 - 1);
            painter.drawLine(x + Cell / 2 - 1, y, x + Cell / 2 - 1, y + Cell / 2 - 1);
            painter.setPen(QPen(FloorSand.lighter(110), 1));
            painter.drawLine(x, y, x + Cell / 2 - 2, y);
            painter.drawLine(x, y, x, y + Cell / 2 - 2);
        }
    }
}

void speckle(QPainter& painter, const QRect& area, QColor base, int grains, int seed) {
    Noise noise(static_cast<std::uint32_t>(seed));
    for (int i = 0; i < grains; ++i) {
        const int x = area.left() + noise.next(area.width());
        const int y = area.top() + noise.next(area.height());
        const QColor grain =
            noise.next(2) ? base.darker(104 + noise.next(8)) : base.lighter(103 + noise.next(6));
        painter.fillRect(x, y, 1 + noise.next(2), 1, grain);
    }
}

void dropShadow(QPainter& painter, const QPainterPath& shape, double offset) {
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Shadow);
    painter.translate(offset, offset);
    painter.drawPath(shape);
    painter.restore();
}

void solid(QPainter& painter, const QPainterPath& shape, QColor fill, QColor edge, double shadow) {
    if (shadow > 0) dropShadow(painter, shape, shadow);
    painter.setPen(QPen(edge, 1.5));
    painter.setBrush(fill);
    painter.drawPath(shape);
}

QPainterPath ellipse(double x, double y, double w, double h) {
    QPainterPath path;
    path.addEllipse(QRectF(x, y, w, h));
    return path;
}

QPainterPath rounded(double x, double y, double w, double h, double radius) {
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, w, h), radius, radius);
    return path;
}

}  // namespace Art
