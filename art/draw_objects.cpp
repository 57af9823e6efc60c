#include "draw_objects.h"

#include "art_style.h"

#include <QPainterPath>

#include <cmath>
#include <functional>
#include <map>

namespace Art {

namespace {

using Drawing = std::function<void(QPainter&)>;

void fillShape(QPainter& p, const QPainterPath& shape, QColor colour, QColor edge) {
    dropShadow(p, shape);
    p.setPen(QPen(edge, 1.5));
    p.setBrush(colour);
    p.drawPath(shape);
}

QPainterPath rounded(double x, double y, double w, double h, double r) {
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, w, h), r, r);
    return path;
}

const QColor Wood(150, 98, 52);
const QColor WoodDark(96, 60, 30);

void chair(QPainter& p) {
    fillShape(p, rounded(18, 14, 28, 8, 2), WoodDark, WoodDark.darker(140));  // backrest
    fillShape(p, rounded(18, 22, 28, 26, 3), Wood, WoodDark);
    p.setPen(QPen(WoodDark, 1));
    for (int x = 24; x < 44; x += 6) p.drawLine(x, 25, x, 45);
}

void smallTable(QPainter& p) {
    fillShape(p, ellipse(12, 12, 40, 40), Wood, WoodDark);
    p.setPen(QPen(Wood.lighter(125), 2));
    p.drawArc(QRectF(17, 17, 30, 30), 100 * 16, 80 * 16);
    fillShape(p, ellipse(26, 24, 12, 10), QColor(235, 235, 240), QColor(150, 150, 160));  // cup
}

void crate(QPainter& p) {
    fillShape(p, rounded(12, 12, 40, 40, 2), QColor(176, 128, 70), WoodDark);
    p.setPen(QPen(WoodDark, 2.5));
    p.drawLine(15, 15, 49, 49);
    p.drawLine(49, 15, 15, 49);
    p.setPen(QPen(WoodDark, 1));
    p.drawRect(16, 16, 32, 32);
}

void flowerpot(QPainter& p) {
    fillShape(p, ellipse(18, 20, 28, 28), QColor(184, 90, 50), QColor(120, 50, 25));
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 6; ++i) {
        const double angle = i * 3.14159 / 3;
        p.setBrush(QColor(60, 140, 60));
        p.drawEllipse(QPointF(32 + 11 * std::cos(angle), 33 + 11 * std::sin(angle)), 7, 5);
    }
    p.setBrush(QColor(230, 80, 120));
    p.drawEllipse(QPointF(32, 33), 5, 5);
    p.setBrush(QColor(250, 220, 80));
    p.drawEllipse(QPointF(32, 33), 2, 2);
}

void bin(QPainter& p, QColor body) {
    fillShape(p, ellipse(16, 16, 32, 32), body, body.darker(160));
    fillShape(p, ellipse(21, 21, 22, 22), body.darker(140), body.darker(180));
    p.setPen(QPen(QColor(230, 230, 210), 2));  // paper sticking out
    p.drawLine(27, 29, 35, 26);
    p.drawLine(30, 35, 37, 33);
}

void puddle(QPainter& p) {
    QPainterPath water;
    water.moveTo(14, 34);
    water.cubicTo(12, 18, 34, 12, 46, 20);
    water.cubicTo(56, 26, 54, 44, 40, 48);
    water.cubicTo(28, 52, 16, 48, 14, 34);
    p.setPen(QPen(QColor(60, 100, 140), 1.5));
    p.setBrush(QColor(90, 140, 190, 200));
    p.drawPath(water);
    p.setPen(QPen(QColor(220, 240, 255), 2));
    p.drawArc(QRectF(22, 22, 14, 8), 30 * 16, 120 * 16);
}

void money(QPainter& p) {
    for (auto [x, y] : {std::pair{16.0, 26.0}, {30.0, 30.0}, {22.0, 16.0}}) {
        fillShape(p, ellipse(x, y, 18, 18), QColor(240, 196, 40), QColor(150, 110, 10));
        p.setPen(QPen(QColor(255, 236, 140), 1.5));
        p.drawEllipse(QRectF(x + 4, y + 4, 10, 10));
    }
}

void teleport(QPainter& p) {
    p.setPen(Qt::NoPen);
    for (int ring = 0; ring < 4; ++ring) {
        p.setBrush(QColor(120 + 30 * ring, 60 + 20 * ring, 200 + 10 * ring));
        p.drawEllipse(QPointF(32, 32), 24 - 5 * ring, 24 - 5 * ring);
    }
    p.setPen(QPen(QColor(255, 255, 255, 200), 2));
    p.drawArc(QRectF(14, 14, 36, 36), 30 * 16, 140 * 16);
    p.drawArc(QRectF(20, 20, 24, 24), 210 * 16, 140 * 16);
}

void extraLife(QPainter& p) {
    QPainterPath heart;
    heart.moveTo(32, 50);
    heart.cubicTo(8, 34, 12, 12, 32, 22);
    heart.cubicTo(52, 12, 56, 34, 32, 50);
    fillShape(p, heart, QColor(220, 40, 50), QColor(120, 10, 20));
    p.setPen(QPen(QColor(255, 170, 170), 2.5));
    p.drawArc(QRectF(18, 20, 12, 12), 90 * 16, 80 * 16);
}

void exitDoor(QPainter& p) {
    fillShape(p, rounded(14, 8, 36, 48, 3), QColor(40, 150, 70), QColor(10, 80, 30));
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

void toilet(QPainter& p) {
    fillShape(p, rounded(20, 8, 24, 12, 3), QColor(240, 240, 245), QColor(140, 140, 150));  // tank
    fillShape(p, ellipse(17, 20, 30, 36), QColor(248, 248, 252), QColor(140, 140, 150));
    fillShape(p, ellipse(23, 27, 18, 22), QColor(170, 210, 230), QColor(120, 150, 170));
}

// A round creature seen from above: body, two eyes looking down the map.
void creature(QPainter& p, QColor body, double size, QColor eyes) {
    const double r = size / 2;
    fillShape(p, ellipse(32 - r, 32 - r, size, size), body, body.darker(170));
    p.setPen(Qt::NoPen);
    p.setBrush(body.lighter(130));
    p.drawEllipse(QPointF(32 - r / 3, 32 - r / 3), r / 3, r / 4);
    p.setBrush(eyes);
    p.drawEllipse(QPointF(32 - r / 2.6, 32 + r / 5), r / 4.2, r / 4.2);
    p.drawEllipse(QPointF(32 + r / 2.6, 32 + r / 5), r / 4.2, r / 4.2);
    p.setBrush(Qt::black);
    p.drawEllipse(QPointF(32 - r / 2.6, 32 + r / 3.6), r / 9, r / 9);
    p.drawEllipse(QPointF(32 + r / 2.6, 32 + r / 3.6), r / 9, r / 9);
}

void hero(QPainter& p) {
    creature(p, QColor(60, 190, 70), 38, Qt::white);
    p.setPen(QPen(QColor(20, 90, 30), 2));  // a small smile
    p.drawArc(QRectF(25, 30, 14, 12), 200 * 16, 140 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(60, 190, 70));  // two little antennae
    p.drawEllipse(QPointF(23, 11), 3, 3);
    p.drawEllipse(QPointF(41, 11), 3, 3);
}

void boss(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(235, 225, 200));  // horns
    for (int side : {-1, 1}) {
        QPainterPath horn;
        horn.moveTo(32 + side * 10, 14);
        horn.lineTo(32 + side * 26, 2);
        horn.lineTo(32 + side * 18, 18);
        p.drawPath(horn);
    }
    creature(p, QColor(170, 30, 30), 48, QColor(255, 220, 40));
    p.setPen(QPen(Qt::black, 2));  // angry brows
    p.drawLine(16, 30, 28, 34);
    p.drawLine(48, 30, 36, 34);
}

void guard(QPainter& p) {
    p.setPen(QPen(QColor(110, 80, 40), 3));  // spear
    p.drawLine(48, 10, 48, 56);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 205, 215));
    QPainterPath tip;
    tip.moveTo(48, 2);
    tip.lineTo(53, 12);
    tip.lineTo(43, 12);
    p.drawPath(tip);
    fillShape(p, rounded(14, 22, 30, 28, 8), QColor(60, 80, 150), QColor(20, 30, 80));  // armour
    creature(p, QColor(220, 180, 140), 24, Qt::white);
    fillShape(p, ellipse(18, 15, 28, 18), QColor(150, 160, 175), QColor(70, 80, 95));  // helmet
}

void secret(QPainter& p) {
    fillShape(p, rounded(14, 18, 36, 30, 4), QColor(120, 70, 30), QColor(60, 30, 10));  // chest
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 190, 60));
    p.drawRect(14, 28, 36, 4);
    p.drawRect(29, 26, 6, 9);
    QPainterPath star;  // a sparkle: something hidden here
    for (int i = 0; i < 8; ++i) {
        const double r = i % 2 ? 3 : 9;
        const double a = i * 3.14159 / 4;
        const QPointF at(48 + r * std::cos(a), 14 + r * std::sin(a));
        i ? star.lineTo(at) : star.moveTo(at);
    }
    star.closeSubpath();
    p.setBrush(QColor(255, 250, 180));
    p.drawPath(star);
}

void unused(QPainter& p) {
    p.setPen(QPen(QColor(150, 130, 100), 1, Qt::DashLine));
    p.drawRect(6, 6, 51, 51);
    p.setPen(QPen(QColor(150, 130, 100), 3));
    p.drawLine(24, 24, 40, 40);
    p.drawLine(40, 24, 24, 40);
}

const std::map<int, Drawing>& drawings() {
    static const std::map<int, Drawing> all = {
        {23, chair},
        {24, smallTable},
        {25, crate},
        {26, flowerpot},
        {27, [](QPainter& p) { bin(p, QColor(90, 110, 130)); }},
        {28, [](QPainter& p) { bin(p, QColor(70, 130, 70)); }},
        {29, puddle},
        {124, money},
        {125, teleport},
        {126, extraLife},
        {127, exitDoor},
        {134, toilet},
        {135, hero},
        {136, boss},
        {137, guard},
        {138, secret},
    };
    return all;
}

}  // namespace

bool isObjectCode(int code) {
    return drawings().count(code) != 0;
}

QImage drawObject(int code) {
    QImage cell = blankCell();
    QPainter painter(&cell);
    paintFloor(painter, cell.rect(), code);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto drawing = drawings().find(code);
    if (drawing != drawings().end())
        drawing->second(painter);
    else
        unused(painter);
    return cell;
}

}  // namespace Art
