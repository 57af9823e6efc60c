#include "draw_items.h"

#include "art_style.h"

#include <cmath>
#include <numbers>

namespace Art {

void drawMoney(QPainter& p) {
    const QColor gold(240, 196, 40), edge(150, 110, 10);
    for (auto [x, y] : {std::pair{13.0, 28.0}, {31.0, 31.0}, {21.0, 13.0}}) {
        solid(p, ellipse(x, y, 20, 20), gold, edge);
        p.setPen(QPen(QColor(255, 236, 140), 1.5));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QRectF(x + 4, y + 4, 12, 12));
        p.setPen(QPen(edge, 1.5));
        p.drawLine(QPointF(x + 10, y + 6), QPointF(x + 10, y + 14));  // the coin's mark
    }
}

void drawTeleport(QPainter& p) {
    solid(p, ellipse(6, 6, 52, 52), QColor(70, 70, 90), QColor(40, 40, 55));  // the pad
    p.setPen(Qt::NoPen);
    for (int ring = 0; ring < 4; ++ring) {
        p.setBrush(QColor(120 + 30 * ring, 60 + 20 * ring, 200 + 10 * ring));
        p.drawEllipse(QPointF(32, 32), 22 - 5 * ring, 22 - 5 * ring);
    }
    p.setPen(QPen(QColor(255, 255, 255, 210), 2));
    p.drawArc(QRectF(15, 15, 34, 34), 30 * 16, 140 * 16);
    p.drawArc(QRectF(21, 21, 22, 22), 210 * 16, 140 * 16);
    p.setBrush(QColor(140, 240, 255));  // lights round the pad
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 8; ++i) {
        const double a = i * std::numbers::pi / 4;
        p.drawEllipse(QPointF(32 + 24 * std::cos(a), 32 + 24 * std::sin(a)), 1.6, 1.6);
    }
}

void drawExtraLife(QPainter& p) {
    QPainterPath heart;
    heart.moveTo(32, 52);
    heart.cubicTo(6, 34, 10, 9, 32, 20);
    heart.cubicTo(54, 9, 58, 34, 32, 52);
    solid(p, heart, QColor(220, 40, 50), QColor(120, 10, 20));
    p.setPen(QPen(QColor(255, 170, 170), 2.5));
    p.drawArc(QRectF(17, 18, 13, 13), 90 * 16, 80 * 16);
    p.setPen(QPen(Qt::white, 3));  // the plus of one more life
    p.drawLine(QPointF(32, 27), QPointF(32, 39));
    p.drawLine(QPointF(26, 33), QPointF(38, 33));
}

void drawExit(QPainter& p) {
    solid(p, rounded(14, 8, 36, 48, 3), QColor(40, 150, 70), QColor(10, 80, 30));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(20, 40, 25));
    p.drawRect(20, 14, 24, 38);
    QPainterPath arrow;  // pointing out through the door
    arrow.moveTo(24, 30);
    arrow.lineTo(34, 30);
    arrow.lineTo(34, 24);
    arrow.lineTo(43, 33);
    arrow.lineTo(34, 42);
    arrow.lineTo(34, 36);
    arrow.lineTo(24, 36);
    arrow.closeSubpath();
    p.setBrush(QColor(255, 255, 255));
    p.drawPath(arrow);
}

void drawSecret(QPainter& p) {
    solid(p, rounded(13, 20, 38, 30, 4), QColor(120, 70, 30), QColor(60, 30, 10));  // chest
    p.setPen(QPen(QColor(150, 95, 45), 1.5));
    p.drawLine(QPointF(15, 25), QPointF(49, 25));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 190, 60));
    p.drawRect(QRectF(13, 31, 38, 4));
    p.drawRect(QRectF(29, 29, 6, 9));
    QPainterPath star;  // a sparkle: something hidden here
    for (int i = 0; i < 8; ++i) {
        const double r = i % 2 ? 3 : 9;
        const double a = i * std::numbers::pi / 4;
        const QPointF at(49 + r * std::cos(a), 14 + r * std::sin(a));
        i ? star.lineTo(at) : star.moveTo(at);
    }
    star.closeSubpath();
    p.setBrush(QColor(255, 250, 180));
    p.drawPath(star);
    p.drawEllipse(QPointF(12, 14), 2, 2);
}

}  // namespace Art
