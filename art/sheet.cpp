#include "sheet.h"

#include "art_style.h"
#include "draw_objects.h"
#include "draw_rooms.h"
#include "draw_walls.h"

#include <QPainter>

namespace Art {

namespace {
constexpr int Columns = 10;
constexpr int Rows = 14;
QPoint cellOrigin(int n) {
    return {(n % Columns) * Cell, (n / Columns) * Cell};
}
}  // namespace

QImage sheetCell(const QImage& sheet, int n) {
    return sheet.copy(QRect(cellOrigin(n), QSize(Cell, Cell)));
}

QImage drawSheet() {
    QImage sheet(Columns * Cell, Rows * Cell, QImage::Format_RGB32);
    QPainter painter(&sheet);
    for (int n = 0; n < Columns * Rows; ++n) {
        // Every cell gets a picture; rooms overwrite theirs below.
        const QImage cell = n == 0 ? drawFloorCell() : n <= 22 ? drawWallPiece(n) : drawObject(n);
        painter.drawImage(cellOrigin(n), cell);
    }
    for (int room = 0; room < RoomTotal; ++room) {
        const RoomLayout layout = roomLayout(room);
        const QImage image = drawRoom(room);
        for (int dy = 0; dy < layout.rows; ++dy)
            for (int dx = 0; dx < layout.columns; ++dx)
                painter.drawImage(cellOrigin(layout.topLeftCell + Columns * dy + dx), image,
                                  QRect(dx * Cell, dy * Cell, Cell, Cell));
    }
    painter.drawImage(cellOrigin(DoorwayCell), drawDoorway());
    return sheet;
}

}  // namespace Art
