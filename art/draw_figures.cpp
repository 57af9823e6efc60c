#include "draw_figures.h"

#include "art_style.h"

namespace Art {

namespace {

// A round creature seen from above: body, a lit crown and two eyes looking down the map.
void creature(QPainter& p, QPointF centre, QColor body, double size, QColor eyes) {
    const double r = size / 2;
    solid(p, ellipse(centre.x() - r, centre.y() - r, size, size), body, body.darker(170));
    p.setPen(Qt::NoPen);
    p.setBrush(body.lighter(130));
    p.drawEllipse(centre + QPointF(-r / 3, -r / 2.4), r / 3, r / 4.5);
    p.setBrush(eyes);
    const QPointF left = centre + QPointF(-r / 2.6, r / 6),
                  right = centre + QPointF(r / 2.6, r / 6);
    p.drawEllipse(left, r / 4.2, r / 4.2);
    p.drawEllipse(right, r / 4.2, r / 4.2);
    p.setBrush(Qt::black);
    p.drawEllipse(left + QPointF(0, r / 12), r / 9, r / 9);
    p.drawEllipse(right + QPointF(0, r / 12), r / 9, r / 9);
}

}  // namespace

void drawHero(QPainter& p) {
    const QColor green(60, 190, 70), dark(20, 90, 30);
    p.setPen(QPen(dark, 2));  // two antennae
    p.drawLine(QPointF(26, 16), QPointF(21, 7));
    p.drawLine(QPointF(38, 16), QPointF(43, 7));
    p.setPen(Qt::NoPen);
    p.setBrush(green);
    p.drawEllipse(QPointF(21, 7), 3.5, 3.5);
    p.drawEllipse(QPointF(43, 7), 3.5, 3.5);
    solid(p, ellipse(10, 36, 12, 10), green.darker(115), dark);  // hands
    solid(p, ellipse(42, 36, 12, 10), green.darker(115), dark);
    creature(p, {32, 33}, green, 40, Qt::white);
    p.setPen(QPen(dark, 2));  // a cheerful smile
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(25, 32, 14, 12), 200 * 16, 140 * 16);
}

void drawBoss(QPainter& p) {
    p.setPen(QPen(QColor(120, 100, 80), 1));
    p.setBrush(QColor(235, 225, 200));  // horns
    for (int side : {-1, 1}) {
        QPainterPath horn;
        horn.moveTo(32 + side * 9, 14);
        horn.quadTo(32 + side * 26, 12, 32 + side * 27, 1);
        horn.quadTo(32 + side * 22, 16, 32 + side * 17, 20);
        horn.closeSubpath();
        p.drawPath(horn);
    }
    solid(p, ellipse(4, 34, 14, 12), QColor(140, 20, 20), QColor(70, 5, 5));  // claws
    solid(p, ellipse(46, 34, 14, 12), QColor(140, 20, 20), QColor(70, 5, 5));
    creature(p, {32, 33}, QColor(170, 30, 30), 46, QColor(255, 220, 40));
    p.setPen(QPen(Qt::black, 2.5));  // angry brows
    p.drawLine(QPointF(16, 29), QPointF(28, 34));
    p.drawLine(QPointF(48, 29), QPointF(36, 34));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);  // fangs
    for (double x : {27.0, 35.0}) p.drawPolygon(QPolygonF({{x, 45}, {x + 3, 45}, {x + 1.5, 50}}));
}

void drawGuard(QPainter& p) {
    const QColor steel(150, 158, 172), armour(70, 80, 110);
    p.setPen(QPen(QColor(110, 80, 40), 3));  // spear
    p.drawLine(QPointF(52, 12), QPointF(52, 58));
    p.setPen(QPen(QColor(90, 95, 105), 1));
    p.setBrush(QColor(210, 215, 225));
    p.drawPolygon(QPolygonF({{52, 1}, {57, 13}, {47, 13}}));
    solid(p, rounded(9, 24, 42, 26, 11), armour, armour.darker(180));  // shoulders
    p.setPen(QPen(armour.lighter(150), 1.5));
    p.drawLine(QPointF(14, 30), QPointF(24, 27));
    solid(p, ellipse(46, 36, 10, 10), QColor(220, 180, 140), QColor(120, 90, 60), 1);  // hand
    solid(p, ellipse(17, 12, 30, 30), steel, QColor(70, 75, 90));  // helmet seen from above
    p.setPen(QPen(QColor(190, 30, 30), 4));                        // red crest along it
    p.drawLine(QPointF(32, 13), QPointF(32, 30));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(35, 35, 45));  // visor slit with glowing eyes
    p.drawRoundedRect(QRectF(21, 31, 22, 7), 3, 3);
    p.setBrush(QColor(255, 90, 40));
    p.drawEllipse(QPointF(27, 34.5), 2, 2);
    p.drawEllipse(QPointF(37, 34.5), 2, 2);
}

}  // namespace Art
