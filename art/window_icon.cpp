#include "window_icon.h"

#include <QPainter>
#include <QPainterPath>

namespace Art {

namespace {

// The sixteen colours of the classic palette; the icon is drawn in these alone.
const QList<QRgb> Colours = {
    qRgb(0, 0, 0),       qRgb(128, 0, 0),   qRgb(0, 128, 0),   qRgb(128, 128, 0),
    qRgb(0, 0, 128),     qRgb(128, 0, 128), qRgb(0, 128, 128), qRgb(192, 192, 192),
    qRgb(128, 128, 128), qRgb(255, 0, 0),   qRgb(0, 255, 0),   qRgb(255, 255, 0),
    qRgb(0, 0, 255),     qRgb(255, 0, 255), qRgb(0, 255, 255), qRgb(255, 255, 255)};
const QColor Navy(0, 0, 128), Dark(0, 128, 0), Light(0, 255, 0), White(255, 255, 255),
    Black(0, 0, 0), Teal(0, 128, 128);

// Drawn without smoothing, so every pixel keeps one of the sixteen colours.
void large(QPainter& p) {
    p.setPen(QPen(Dark, 2));  // antennae
    p.drawLine(11, 9, 8, 4);
    p.drawLine(21, 9, 24, 4);
    p.fillRect(6, 2, 4, 4, Light);
    p.fillRect(22, 2, 4, 4, Light);
    p.setPen(QPen(Dark, 2));
    p.setBrush(Light);
    p.drawEllipse(4, 8, 24, 22);
    p.setPen(Qt::NoPen);
    p.setBrush(Dark);  // shade on the side away from the light
    p.drawPie(QRect(5, 9, 22, 20), -100 * 16, 110 * 16);
    p.setBrush(Light);
    p.drawEllipse(6, 10, 19, 17);
    p.fillRect(9, 11, 5, 2, White);  // shine
    p.fillRect(9, 14, 6, 6, White);  // eyes
    p.fillRect(18, 14, 6, 6, White);
    p.fillRect(11, 16, 3, 3, Black);
    p.fillRect(20, 16, 3, 3, Black);
    p.fillRect(12, 23, 9, 2, Dark);  // smile
    p.fillRect(11, 22, 2, 2, Dark);
    p.fillRect(20, 22, 2, 2, Dark);
}

void small(QPainter& p) {
    p.fillRect(3, 1, 2, 2, Light);  // antennae
    p.fillRect(11, 1, 2, 2, Light);
    p.fillRect(4, 3, 1, 2, Dark);
    p.fillRect(11, 3, 1, 2, Dark);
    p.setPen(QPen(Dark, 1));
    p.setBrush(Light);
    p.drawEllipse(2, 4, 12, 11);
    p.fillRect(4, 7, 3, 3, White);  // eyes
    p.fillRect(9, 7, 3, 3, White);
    p.fillRect(5, 8, 2, 2, Black);
    p.fillRect(10, 8, 2, 2, Black);
    p.fillRect(6, 12, 4, 1, Dark);  // smile
}

// The same face drawn smooth on a rounded tile, in 32 units, for desktop menus and launchers.
QImage desktopIcon(int side) {
    QImage full(side, side, QImage::Format_ARGB32_Premultiplied);
    full.fill(Qt::transparent);
    QPainter p(&full);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 32.0, side / 32.0);
    QPainterPath tile;
    tile.addRoundedRect(QRectF(0.5, 0.5, 31, 31), 5, 5);
    p.setClipPath(tile);
    p.fillRect(0, 0, 32, 32, Navy);
    p.fillRect(0, 28, 32, 4, Teal);

    p.setPen(QPen(Dark, 1.6, Qt::SolidLine, Qt::RoundCap));  // antennae
    p.drawLine(QPointF(11.5, 9.5), QPointF(8, 4.5));
    p.drawLine(QPointF(20.5, 9.5), QPointF(24, 4.5));
    p.setPen(QPen(Dark, 0.8));
    p.setBrush(Light);
    p.drawEllipse(QPointF(8, 4), 2.2, 2.2);
    p.drawEllipse(QPointF(24, 4), 2.2, 2.2);

    QRadialGradient skin(QPointF(13, 14), 15);  // lit from the top left
    skin.setColorAt(0, QColor(140, 255, 140));
    skin.setColorAt(0.55, Light);
    skin.setColorAt(1, Dark);
    p.setPen(QPen(Dark.darker(130), 1));
    p.setBrush(skin);
    p.drawEllipse(QRectF(4, 8, 24, 21));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 170));  // shine
    p.drawEllipse(QRectF(8.5, 10.5, 5, 2.2));

    p.setPen(QPen(Dark, 0.6));  // eyes
    p.setBrush(White);
    p.drawEllipse(QRectF(8.5, 13.5, 6.5, 6.5));
    p.drawEllipse(QRectF(17, 13.5, 6.5, 6.5));
    p.setPen(Qt::NoPen);
    p.setBrush(Black);
    p.drawEllipse(QRectF(11, 15.5, 3, 3));
    p.drawEllipse(QRectF(19.5, 15.5, 3, 3));

    p.setPen(QPen(Dark, 1.6, Qt::SolidLine, Qt::RoundCap));  // smile
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(11, 18, 10, 6), -20 * 16, -140 * 16);
    p.end();
    return full;
}

}  // namespace

QImage windowIcon(int side) {
    if (side > 32) return desktopIcon(side);
    QImage full(side, side, QImage::Format_RGB32);
    full.fill(Navy);
    QPainter p(&full);
    p.setRenderHint(QPainter::Antialiasing, false);
    p.fillRect(0, side - side / 8, side, side / 8, Teal);  // the floor it stands on
    side >= 32 ? large(p) : small(p);
    p.end();
    return full.convertToFormat(QImage::Format_Indexed8, Colours, Qt::ThresholdDither);
}

}  // namespace Art
