#include "draw_rooms.h"

#include "art_style.h"
#include "room_blocks.h"

#include <QPainterPath>

#include <algorithm>

namespace Art {

namespace {

constexpr int Band = 12;  // room walls along the block's outer edges

void box(QPainter& p, QRectF area, QColor fill, QColor edge, double radius = 2) {
    QPainterPath shape;
    shape.addRoundedRect(area, radius, radius);
    dropShadow(p, shape, 3);
    p.setPen(QPen(edge, 1.5));
    p.setBrush(fill);
    p.drawPath(shape);
}

void floorOf(QPainter& p, QRect area, QColor a, QColor b, int tile) {
    for (int y = area.top(); y < area.bottom(); y += tile)
        for (int x = area.left(); x < area.right(); x += tile)
            p.fillRect(x, y, tile, tile, ((x / tile + y / tile) % 2) ? a : b);
}

// The room's own walls, in the same stone as the level's, along the block's outer edges.
void walls(QPainter& p, QSize size) {
    const int w = size.width(), h = size.height();
    p.setPen(Qt::NoPen);
    p.setBrush(Shadow);  // the top and left walls cast their shadow into the room
    p.drawRect(Band, Band, w - 2 * Band, 5);
    p.drawRect(Band, Band + 5, 5, h - 2 * Band - 5);
    QPainterPath band;
    band.setFillRule(Qt::WindingFill);
    band.addRect(0, 0, w, Band);
    band.addRect(0, 0, Band, h);
    band.addRect(w - Band, 0, Band, h);
    band.addRect(0, h - Band, w, Band);
    p.setBrush(WallStone);
    p.drawPath(band);
    p.save();
    p.setClipPath(band);
    speckle(p, {0, 0, w, h}, WallStone, w * h / 12, 300 + w);
    p.restore();
    p.setPen(QPen(WallLight, 2));  // lit outer top and left, lit inner bottom and right
    p.drawLine(1, 1, w - 1, 1);
    p.drawLine(1, 1, 1, h - 1);
    p.drawLine(Band, h - Band + 1, w - Band, h - Band + 1);
    p.drawLine(w - Band + 1, Band, w - Band + 1, h - Band);
    p.setPen(QPen(WallDark, 2));
    p.drawLine(Band, Band - 1, w - Band, Band - 1);
    p.drawLine(Band - 1, Band, Band - 1, h - Band);
    p.drawLine(1, h - 1, w - 1, h - 1);
    p.drawLine(w - 1, 1, w - 1, h - 1);
}

void library(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(170, 120, 70), QColor(160, 112, 64), 16);
    const QColor spines[] = {QColor(160, 40, 40), QColor(40, 80, 150), QColor(50, 120, 60),
                             QColor(200, 160, 60)};
    for (int shelf = 0; shelf < 2; ++shelf) {
        const QRectF area(Band + 4, Band + 4 + 70.0 * shelf * 1.6, s.width() - 2 * Band - 8, 22);
        box(p, area, QColor(90, 55, 25), QColor(50, 30, 10));
        for (int i = 0; i < 18; ++i)
            p.fillRect(QRectF(area.left() + 4 + i * 9.2, area.top() + 4, 7, 14), spines[i % 4]);
    }
    box(p, {50, 150, 92, 44}, QColor(130, 80, 40), QColor(70, 40, 15));          // reading desk
    box(p, {146, 196, 30, 22}, QColor(150, 30, 40), QColor(80, 10, 20), 6);      // armchair
    box(p, {70, 160, 26, 18}, QColor(240, 235, 210), QColor(150, 140, 110), 1);  // open book
}

void bedroom(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(70, 100, 160), QColor(66, 94, 152), 8);
    box(p, {30, 24, 90, 130}, QColor(235, 235, 245), QColor(120, 120, 140), 6);  // bed
    box(p, {40, 32, 70, 24}, QColor(255, 255, 255), QColor(150, 150, 170), 8);   // pillow
    box(p, {30, 70, 90, 84}, QColor(180, 60, 80), QColor(110, 30, 45), 4);       // blanket
    box(p, {132, 28, 44, 40}, QColor(150, 100, 55), QColor(90, 55, 25));         // nightstand
    p.setBrush(QColor(255, 230, 140));
    p.drawEllipse(QPointF(154, 48), 9, 9);                                        // lamp
    box(p, {24, 166, 136, 22}, QColor(200, 170, 120), QColor(140, 110, 70), 10);  // rug
}

void kitchen(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(235, 235, 230), QColor(60, 60, 70), 16);
    box(p, {Band + 2.0, Band + 2.0, s.width() - 2.0 * Band - 4, 30}, QColor(190, 190, 195),
        QColor(100, 100, 110));    // counter
    for (int i = 0; i < 4; ++i) {  // stove rings
        p.setPen(QPen(QColor(60, 60, 60), 3));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(36 + 22 * i, 27), 7, 7);
    }
    box(p, {56, 110, 80, 60}, QColor(170, 120, 70), QColor(100, 65, 30));  // table
    for (auto [x, y] : {std::pair{46.0, 124.0}, {136.0, 124.0}, {86.0, 98.0}, {86.0, 170.0}})
        box(p, {x, y, 14, 14}, QColor(130, 85, 45), QColor(80, 50, 20));  // stools
}

void storage(QPainter& p, QSize s) {
    p.fillRect(0, 0, s.width(), s.height(), QColor(120, 112, 100));
    speckle(p, {0, 0, s.width(), s.height()}, QColor(120, 112, 100), 1500, 44);
    p.setPen(QPen(QColor(88, 82, 72), 1.5));  // seams of the concrete slabs
    for (int at = 40; at < std::max(s.width(), s.height()); at += 44) {
        p.drawLine(at, 0, at, s.height());
        p.drawLine(0, at, s.width(), at);
    }
    for (auto [x, y] : {std::pair{20.0, 20.0}, {62.0, 20.0}, {20.0, 62.0}, {130.0, 150.0}}) {
        box(p, {x, y, 38, 38}, QColor(176, 128, 70), QColor(96, 60, 30));
        p.setPen(QPen(QColor(96, 60, 30), 2));
        p.drawLine(QPointF(x + 3, y + 3), QPointF(x + 35, y + 35));
    }
    for (auto [x, y] : {std::pair{140.0, 30.0}, {140.0, 80.0}, {18.0, 192.0}}) {
        box(p, {x, y, 36, 36}, QColor(130, 80, 40), QColor(60, 35, 15), 18);  // barrels
        p.setPen(QPen(QColor(70, 70, 75), 2));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QRectF(x + 6, y + 6, 24, 24));
    }
}

void dining(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(150, 40, 40), QColor(140, 36, 36), 12);
    box(p, {40, 60, 176, 60}, QColor(160, 105, 55), QColor(90, 55, 25));  // long table
    for (int i = 0; i < 5; ++i) {
        const double x = 52 + 34 * i;
        p.setPen(QPen(QColor(150, 150, 160), 1));
        p.setBrush(QColor(245, 245, 250));
        p.drawEllipse(QPointF(x + 6, 74), 7, 7);  // plates
        p.drawEllipse(QPointF(x + 6, 106), 7, 7);
        box(p, {x, 40, 14, 14}, QColor(110, 70, 35), QColor(60, 35, 15));  // chairs
        box(p, {x, 126, 14, 14}, QColor(110, 70, 35), QColor(60, 35, 15));
    }
    p.setBrush(QColor(255, 220, 120));
    p.drawEllipse(QPointF(128, 90), 6, 6);  // candle
}

void bathroom(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(200, 230, 240), QColor(180, 215, 230), 12);
    box(p, {20, 20, 110, 56}, QColor(250, 250, 255), QColor(130, 140, 160), 20);  // tub
    box(p, {30, 28, 90, 40}, QColor(140, 200, 230), QColor(100, 160, 200), 16);
    box(p, {190, 22, 44, 34}, QColor(250, 250, 255), QColor(130, 140, 160), 10);  // sink
    p.setBrush(QColor(190, 190, 200));
    p.drawEllipse(QPointF(212, 40), 8, 6);
    box(p, {150, 110, 70, 44}, QColor(120, 180, 200), QColor(80, 130, 160), 8);  // mat
}

void throneRoom(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(96, 64, 128), QColor(80, 52, 106), 16);
    p.fillRect(QRect(140, 40, 40, s.height() - 40), QColor(190, 30, 40));  // runner to the door
    p.fillRect(QRect(144, 40, 2, s.height() - 40), QColor(230, 190, 60));
    p.fillRect(QRect(174, 40, 2, s.height() - 40), QColor(230, 190, 60));
    box(p, {136, 14, 48, 40}, QColor(220, 180, 50), QColor(140, 100, 20), 6);  // throne
    box(p, {146, 24, 28, 24}, QColor(180, 30, 40), QColor(120, 10, 20), 4);
    for (double x : {40.0, 90.0, 220.0})
        box(p, {x, 30, 18, 18}, QColor(150, 150, 160), QColor(80, 80, 90), 9);  // pillars
}

void laboratory(QPainter& p, QSize s) {
    floorOf(p, {0, 0, s.width(), s.height()}, QColor(170, 175, 180), QColor(160, 165, 170), 16);
    for (double y : {30.0, 100.0}) {
        box(p, {30, y, 190, 34}, QColor(200, 200, 205), QColor(110, 110, 120));  // benches
        const QColor flasks[] = {QColor(60, 200, 90), QColor(220, 60, 200), QColor(60, 150, 240),
                                 QColor(240, 160, 40)};
        for (int i = 0; i < 6; ++i) {
            p.setPen(QPen(QColor(80, 80, 90), 1));
            p.setBrush(flasks[(i + int(y)) % 4]);
            p.drawEllipse(QPointF(48 + 30 * i, y + 17), 7, 7);
        }
    }
    box(p, {188, 136, 40, 40}, QColor(50, 50, 58), QColor(20, 20, 25), 20);  // cauldron
    box(p, {194, 142, 28, 28}, QColor(110, 210, 80), QColor(60, 140, 40), 14);
    p.setBrush(QColor(200, 255, 170));  // bubbles
    for (auto [x, y] : {std::pair{202.0, 150.0}, {212.0, 160.0}, {214.0, 149.0}})
        p.drawEllipse(QPointF(x, y), 2.5, 2.5);
}

using Furnish = void (*)(QPainter&, QSize);
constexpr Furnish Furnishings[RoomCount] = {library, bedroom,  kitchen,    storage,
                                            dining,  bathroom, throneRoom, laboratory};

}  // namespace

QImage drawRoom(int room) {
    const RoomBlock block = roomBlock(room);
    QImage image(block.columns * Cell, block.rows * Cell, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Furnishings[room](painter, image.size());
    walls(painter, image.size());
    return image;
}

QImage drawDoorway() {
    QImage cell(Cell, Cell, QImage::Format_RGB32);
    QPainter p(&cell);
    p.setRenderHint(QPainter::Antialiasing);
    // Plain boards inside, for they lie next to the floor of any room.
    p.fillRect(cell.rect(), QColor(156, 118, 80));
    p.setPen(QPen(QColor(128, 94, 62), 1));
    for (int x = 7; x < Cell; x += 10) p.drawLine(x, 0, x, Cell - Band);
    // A runner from the doorway into the room.
    box(p, {24, 6, 24, Cell - Band - 4.0}, QColor(150, 50, 45), QColor(90, 30, 25), 2);
    p.setPen(QPen(QColor(210, 170, 80), 1));
    p.drawRect(QRectF(27, 9, 18, Cell - Band - 10.0));
    // The bottom wall of the room, the same as every room's, with the opening in it.
    const QRect opening(14, Cell - Band, Cell - 28, Band);
    p.fillRect(0, Cell - Band, Cell, Band, WallStone);
    speckle(p, QRect(0, Cell - Band, Cell, Band), WallStone, 120, 114);
    p.setPen(QPen(WallLight, 2));
    p.drawLine(0, Cell - Band + 1, Cell, Cell - Band + 1);
    p.setPen(QPen(WallDark, 2));
    p.drawLine(0, Cell - 1, Cell, Cell - 1);
    p.fillRect(opening, QColor(206, 192, 160));  // the threshold
    p.fillRect(opening.left(), Cell - Band + 5, opening.width(), 1, QColor(150, 130, 100));
    for (int x : {opening.left() - 5, opening.right() + 1})  // door posts
        box(p, {double(x), Cell - Band - 4.0, 5, Band + 4.0}, WallLight, WallDark, 1);
    // The door stands open into the room, turned on its hinge at the left post.
    p.setPen(QPen(QColor(90, 60, 30, 160), 1, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    const QPointF hinge(opening.left() + 2, Cell - Band);
    const double reach = opening.width() - 2;
    p.drawArc(QRectF(hinge.x() - reach, hinge.y() - reach, 2 * reach, 2 * reach), 0, 90 * 16);
    box(p, {hinge.x(), hinge.y() - reach, 5, reach}, QColor(170, 110, 55), QColor(90, 55, 25), 1);
    return cell;
}

}  // namespace Art
