#include "palette_pictures.h"

#include "sheet.h"
#include "wall_pieces.h"

#include <QPainter>

namespace Art {

QImage palettePicture(const QImage& sheet, int code) {
    const int side = (code >= 27 && code <= 29) ? 64 : 48;  // the two bins and the puddle
    QImage source;
    if (code >= FirstRoomTool && code <= LastRoomTool)
        source = roomBlockPicture(sheet, code - FirstRoomTool);  // the block in miniature
    else if (code == WallToolCode)
        source = sheetCell(sheet, wallPieceFor(0b1111));  // a crossing shows best that walls join
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
