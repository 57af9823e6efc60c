#include "small_pictures.h"

#include "art_style.h"
#include "draw_rooms.h"
#include "draw_walls.h"
#include "sheet.h"

#include <QPainterPath>

#include <cstring>

namespace Art {

QImage palettePicture(const QImage& sheet, int code) {
    const int side = (code >= 27 && code <= 29) ? 64 : 48;
    QImage picture(side, side, QImage::Format_RGB888);
    picture.fill(QColor(212, 208, 200));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QImage source;
    if (code >= 2 && code <= 9) {
        source = drawRoom(code - 2);  // the room's block in miniature
    } else if (code == 1) {
        source = drawWallPiece(13);  // a crossing shows best that walls join
    } else {
        source = sheetCell(sheet, code);
    }
    const QSize fitted = source.size().scaled(side, side, Qt::KeepAspectRatio);
    painter.drawImage(
        QRect(QPoint((side - fitted.width()) / 2, (side - fitted.height()) / 2), fitted), source);
    return picture;
}

QImage buttonPicture(const char* name) {
    QImage picture(16, 16, QImage::Format_RGB888);
    picture.fill(QColor(192, 192, 192));
    QPainter p(&picture);
    p.setPen(QPen(Qt::black, 1));
    if (std::strcmp(name, "new") == 0) {
        p.setBrush(Qt::white);
        p.drawPolygon(
            QPolygon({QPoint(3, 1), QPoint(10, 1), QPoint(13, 4), QPoint(13, 14), QPoint(3, 14)}));
        p.drawLine(10, 1, 10, 4);
        p.drawLine(10, 4, 13, 4);
    } else if (std::strcmp(name, "open") == 0) {
        p.setBrush(QColor(230, 200, 90));
        p.drawRect(1, 4, 13, 10);
        p.setBrush(QColor(250, 225, 120));
        p.drawPolygon(QPolygon({QPoint(3, 7), QPoint(15, 7), QPoint(13, 14), QPoint(1, 14)}));
    } else {
        p.setBrush(QColor(40, 60, 140));
        p.drawRect(1, 1, 13, 13);
        p.setBrush(Qt::white);
        p.drawRect(4, 2, 7, 5);
        p.setBrush(QColor(150, 150, 160));
        p.drawRect(4, 9, 7, 5);
    }
    return picture;
}

QImage windowIcon(int side) {
    QImage full(side, side, QImage::Format_RGB32);
    full.fill(QColor(0, 0, 64));
    QPainter p(&full);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 32.0, side / 32.0);
    p.setPen(QPen(QColor(0, 100, 0), 1));
    p.setBrush(QColor(0, 200, 0));
    p.drawEllipse(QRectF(4, 5, 24, 24));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QRectF(9, 14, 6, 6));
    p.drawEllipse(QRectF(17, 14, 6, 6));
    p.setBrush(Qt::black);
    p.drawEllipse(QRectF(11, 16, 3, 3));
    p.drawEllipse(QRectF(19, 16, 3, 3));
    p.end();
    // The sixteen colours of the classic palette.
    const QList<QRgb> colours = {
        qRgb(0, 0, 0),       qRgb(128, 0, 0),   qRgb(0, 128, 0),   qRgb(128, 128, 0),
        qRgb(0, 0, 128),     qRgb(128, 0, 128), qRgb(0, 128, 128), qRgb(192, 192, 192),
        qRgb(128, 128, 128), qRgb(255, 0, 0),   qRgb(0, 255, 0),   qRgb(255, 255, 0),
        qRgb(0, 0, 255),     qRgb(255, 0, 255), qRgb(0, 255, 255), qRgb(255, 255, 255)};
    return full.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither);
}

}  // namespace Art
