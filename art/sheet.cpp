#include "sheet.h"

#include "art_style.h"
#include "draw_figures.h"
#include "draw_furniture.h"
#include "draw_items.h"
#include "draw_rooms.h"
#include "draw_walls.h"
#include "room_blocks.h"

#include <map>

namespace Art {

namespace {

using Drawing = void (*)(QPainter&);

// Single-cell objects: the one place where a code meets the function that draws it.
const std::map<int, Drawing> Objects = {
    {23, drawChair},     {24, drawSmallTable}, {25, drawCrate},  {26, drawFlowerpot},
    {27, drawBinA},      {28, drawBinB},       {29, drawPuddle}, {124, drawMoney},
    {125, drawTeleport}, {126, drawExtraLife}, {127, drawExit},  {134, drawToilet},
    {135, drawHero},     {136, drawBoss},      {137, drawGuard}, {138, drawSecret},
};

// Cells no tool paints: plain floor with a faint dashed frame and a cross, clearly no object.
void drawUnused(QPainter& p) {
    const QColor ink(150, 130, 100);
    p.setPen(QPen(ink, 1, Qt::DashLine));
    p.drawRect(6, 6, 51, 51);
    p.setPen(QPen(ink, 3));
    p.drawLine(24, 24, 40, 40);
    p.drawLine(40, 24, 24, 40);
}

QImage objectCell(int code) {
    QImage cell = floorCell(code);
    QPainter painter(&cell);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto object = Objects.find(code);
    (object != Objects.end() ? object->second : drawUnused)(painter);
    return cell;
}

QPoint cellOrigin(int n) {
    return {(n % SheetColumns) * Cell, (n / SheetColumns) * Cell};
}

}  // namespace

QImage sheetCell(const QImage& sheet, int n) {
    return sheet.copy(QRect(cellOrigin(n), QSize(Cell, Cell)));
}

QImage drawSheet() {
    QImage sheet(SheetColumns * Cell, SheetRows * Cell, QImage::Format_RGB32);
    QPainter painter(&sheet);
    for (int n = 0; n < SheetCellCount; ++n) {
        // Every cell gets a picture; the rooms overwrite theirs below.
        const QImage cell = n == FloorCode   ? floorCell(1)
                            : isWallPiece(n) ? drawWallPiece(n)
                                             : objectCell(n);
        painter.drawImage(cellOrigin(n), cell);
    }
    // The doorway has a cell of its own; the block cell it replaces when laid keeps the wall.
    for (int room = 0; room < RoomCount; ++room) {
        const RoomBlock block = roomBlock(room);
        const QImage image = drawRoom(room);
        for (int dy = 0; dy < block.rows; ++dy)
            for (int dx = 0; dx < block.columns; ++dx)
                painter.drawImage(cellOrigin(block.topLeft + SheetColumns * dy + dx), image,
                                  QRect(dx * Cell, dy * Cell, Cell, Cell));
    }
    painter.drawImage(cellOrigin(DoorwayCode), drawDoorway());
    return sheet;
}

QImage roomBlockPicture(const QImage& sheet, int room) {
    const RoomBlock block = roomBlock(room);
    QImage picture(block.columns * Cell, block.rows * Cell, QImage::Format_RGB32);
    QPainter painter(&picture);
    for (int dy = 0; dy < block.rows; ++dy)
        for (int dx = 0; dx < block.columns; ++dx)
            painter.drawImage(QPoint(dx * Cell, dy * Cell),
                              sheetCell(sheet, roomBlockCode(room, dx, dy)));
    return picture;
}

}  // namespace Art
