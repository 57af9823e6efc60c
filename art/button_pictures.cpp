#include "button_pictures.h"

#include <QPainter>

#include <cstring>

namespace Art {

QImage buttonPicture(const char* name) {
    QImage picture(16, 16, QImage::Format_RGB888);
    picture.fill(QColor(192, 192, 192));
    QPainter p(&picture);
    p.setPen(QPen(Qt::black, 1));
    if (std::strcmp(name, "new") == 0) {  // a blank page with a folded corner
        p.setBrush(Qt::white);
        p.drawPolygon(
            QPolygon({QPoint(3, 1), QPoint(10, 1), QPoint(13, 4), QPoint(13, 14), QPoint(3, 14)}));
        p.drawLine(10, 1, 10, 4);
        p.drawLine(10, 4, 13, 4);
    } else if (std::strcmp(name, "open") == 0) {  // a folder opening
        p.setBrush(QColor(230, 200, 90));
        p.drawPolygon(QPolygon({QPoint(1, 3), QPoint(6, 3), QPoint(7, 4), QPoint(12, 4),
                                QPoint(12, 13), QPoint(1, 13)}));
        p.setBrush(QColor(250, 225, 120));
        p.drawPolygon(QPolygon({QPoint(4, 7), QPoint(15, 7), QPoint(12, 13), QPoint(1, 13)}));
    } else {  // a diskette
        p.setBrush(QColor(40, 60, 140));
        p.drawRect(1, 1, 13, 13);
        p.setBrush(Qt::white);
        p.drawRect(4, 1, 7, 5);
        p.setBrush(QColor(150, 150, 160));
        p.drawRect(4, 9, 7, 5);
    }
    return picture;
}

}  // namespace Art
