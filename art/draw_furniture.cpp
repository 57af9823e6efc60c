#include "draw_furniture.h"

#include "art_style.h"

#include <cmath>
#include <numbers>

namespace Art {

void drawChair(QPainter& p) {
    const QColor cushion(170, 50, 50);
    solid(p, rounded(18, 23, 28, 26, 4), Wood, WoodDark);                   // seat
    solid(p, rounded(22, 27, 20, 18, 4), cushion, cushion.darker(150), 0);  // cushion
    p.fillRect(QRectF(21, 19, 4, 6), WoodDark);                             // back posts
    p.fillRect(QRectF(39, 19, 4, 6), WoodDark);
    solid(p, rounded(16, 12, 32, 9, 3), WoodDark, WoodDark.darker(150));  // backrest
    p.setPen(QPen(Wood.lighter(130), 1.5));
    p.drawLine(QPointF(19, 14.5), QPointF(45, 14.5));
}

void drawSmallTable(QPainter& p) {
    solid(p, ellipse(12, 12, 40, 40), Wood, WoodDark);
    p.setPen(QPen(Wood.lighter(125), 2));
    p.drawArc(QRectF(17, 17, 30, 30), 100 * 16, 80 * 16);
    solid(p, ellipse(26, 24, 12, 10), QColor(235, 235, 240), QColor(150, 150, 160), 1.5);  // cup
    p.setPen(QPen(QColor(150, 150, 160), 2));
    p.drawLine(QPointF(38, 29), QPointF(41, 29));  // its handle
}

void drawCrate(QPainter& p) {
    solid(p, rounded(12, 12, 40, 40, 2), QColor(176, 128, 70), WoodDark);
    p.setPen(QPen(WoodDark, 2.5));
    p.drawLine(15, 15, 49, 49);
    p.drawLine(49, 15, 15, 49);
    p.setPen(QPen(WoodDark, 1));
    p.drawRect(16, 16, 32, 32);
}

void drawFlowerpot(QPainter& p) {
    solid(p, ellipse(17, 19, 30, 30), QColor(184, 90, 50), QColor(120, 50, 25));
    solid(p, ellipse(21, 23, 22, 22), QColor(90, 60, 40), QColor(120, 50, 25), 0);  // soil
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 6; ++i) {
        const double angle = i * std::numbers::pi / 3;
        p.setBrush(i % 2 ? QColor(60, 140, 60) : QColor(80, 165, 70));
        p.drawEllipse(QPointF(32 + 11 * std::cos(angle), 34 + 11 * std::sin(angle)), 8, 5.5);
    }
    p.setBrush(QColor(230, 80, 120));
    p.drawEllipse(QPointF(32, 34), 5.5, 5.5);
    p.setBrush(QColor(250, 220, 80));
    p.drawEllipse(QPointF(32, 34), 2, 2);
}

void drawBinA(QPainter& p) {
    const QColor metal(160, 166, 172);
    solid(p, ellipse(14, 14, 36, 36), metal, QColor(80, 85, 92));
    solid(p, ellipse(19, 19, 26, 26), QColor(55, 58, 64), QColor(40, 42, 46), 0);  // inside
    p.setPen(QPen(metal.darker(130), 1));  // the mesh of the wall
    for (int i = 0; i < 16; ++i) {
        const double a = i * std::numbers::pi / 8;
        p.drawLine(QPointF(32 + 13.5 * std::cos(a), 32 + 13.5 * std::sin(a)),
                   QPointF(32 + 17 * std::cos(a), 32 + 17 * std::sin(a)));
    }
    // Crumpled paper inside.
    solid(p, ellipse(23, 26, 11, 10), QColor(236, 232, 215), QColor(150, 145, 125), 1);
    solid(p, ellipse(31, 31, 10, 9), QColor(250, 248, 235), QColor(150, 145, 125), 1);
    p.setPen(QPen(QColor(150, 145, 125), 1));
    p.drawLine(QPointF(26, 29), QPointF(30, 32));
    p.drawLine(QPointF(34, 33), QPointF(37, 36));
}

void drawBinB(QPainter& p) {
    const QColor green(60, 130, 70);
    p.fillRect(QRectF(18, 11, 7, 4), QColor(40, 40, 40));  // wheels at the back
    p.fillRect(QRectF(39, 11, 7, 4), QColor(40, 40, 40));
    solid(p, rounded(14, 14, 36, 38, 3), green, green.darker(170));
    p.setPen(QPen(green.darker(150), 2));
    p.drawLine(QPointF(15, 20), QPointF(49, 20));  // hinge of the lid
    p.setPen(QPen(green.lighter(140), 1.5));
    p.drawLine(QPointF(16, 22.5), QPointF(48, 22.5));
    solid(p, rounded(24, 44, 16, 5, 2), green.darker(140), green.darker(200), 0);  // handle
    // Three arrows round a triangle: the recycling sign on the lid.
    p.setPen(QPen(QColor(235, 245, 235), 2));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(QPolygonF({QPointF(32, 26), QPointF(41, 40), QPointF(23, 40)}));
}

void drawPuddle(QPainter& p) {
    QPainterPath water;
    water.moveTo(12, 34);
    water.cubicTo(10, 16, 34, 10, 47, 18);
    water.cubicTo(58, 25, 56, 45, 41, 50);
    water.cubicTo(28, 54, 14, 50, 12, 34);
    p.setPen(QPen(QColor(60, 100, 140), 1.5));
    p.setBrush(QColor(90, 140, 190, 210));
    p.drawPath(water);
    p.setBrush(QColor(90, 140, 190, 170));
    p.drawEllipse(QRectF(47, 46, 8, 6));  // a splash beside it
    p.setPen(QPen(QColor(220, 240, 255), 2));
    p.drawArc(QRectF(20, 20, 16, 9), 30 * 16, 120 * 16);
    p.drawArc(QRectF(36, 36, 10, 6), 200 * 16, 100 * 16);
}

void drawToilet(QPainter& p) {
    const QColor china(246, 246, 250), rim(140, 140, 150);
    solid(p, rounded(19, 7, 26, 13, 3), QColor(236, 236, 242), rim);  // tank
    solid(p, ellipse(16, 18, 32, 38), china, rim);
    solid(p, ellipse(22, 25, 20, 25), QColor(170, 210, 230), QColor(120, 150, 170), 0);
    p.fillRect(QRectF(29, 10, 6, 3), QColor(190, 190, 200));  // flush button
}

}  // namespace Art
