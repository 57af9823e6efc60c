#include "palette_pictures.h"

#include "sheet.h"

#include <QPainter>

namespace Art {

QImage palettePicture(const QImage& sheet, int code) {
    const int side = (code >= 27 && code <= 29) ? 64 : 48;
    QImage source;
    if (code >= 2 && code <= 9)
        source = roomBlock(sheet, code - 2);  // the room's block in miniature
    else if (code == 1)
        source = sheetCell(sheet, 13);  // a crossing shows best that walls join
    else
        source = sheetCell(sheet, code);
    QImage picture(side, side, QImage::Format_RGB888);
    picture.fill(QColor(212, 208, 200));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSize fitted = source.size().scaled(side, side, Qt::KeepAspectRatio);
    painter.drawImage(
        QRect(QPoint((side - fitted.width()) / 2, (side - fitted.height()) / 2), fitted), source);
    return picture;
}

}  // namespace Art
