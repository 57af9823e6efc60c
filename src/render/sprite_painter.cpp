#include "sprite_painter.h"

#include "level.h"
#include "map_canvas.h"
#include "minimap_dots.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

namespace {
struct RoomBlock {
    int topLeft;  // sheet cell of the block's top-left corner
    int columns;
    int rows;
    int sharedColumn;  // bottom-row position painted with the shared doorway cell
};
constexpr RoomBlock RoomBlocks[RoomCount] = {
    {30, 3, 4, 1}, {33, 3, 4, 1}, {70, 3, 4, 1}, {73, 3, 4, 1},
    {36, 4, 3, 1}, {66, 4, 3, 1}, {96, 4, 3, 2}, {110, 4, 3, 1},
};
bool knownRoom(int room) {
    return room >= 0 && room < RoomCount;
}
}  // namespace

int RoomBlockColumns(int room) {
    return knownRoom(room) ? RoomBlocks[room].columns : 0;
}
int RoomBlockRows(int room) {
    return knownRoom(room) ? RoomBlocks[room].rows : 0;
}

int RoomBlockCode(int room, int dx, int dy) {
    if (!knownRoom(room)) return -1;
    const RoomBlock& block = RoomBlocks[room];
    if (dx < 0 || dx >= block.columns || dy < 0 || dy >= block.rows) return -1;
    if (dy == block.rows - 1 && dx == block.sharedColumn) return SharedRoomCell;
    return block.topLeft + SheetColumns * dy + dx;
}

void SpritePainter::PaintSprite(int x, int y, int code) {
    if (x < 0 || x > level.GridWidth || y < 0 || y > level.GridHeight) return;
    level.setCell(x, y, static_cast<qint16>(code));
    const int stored = level.cell(x, y);
    sheet.cellRect(stored);  // a code without a picture fails here, after the store
    map.drawCell(x, y, stored);
    PlotMinimapCell(minimap, x, y, code);
}

void SpritePainter::PaintTileSprite(int x, int y, int room) {
    for (int dy = 0; dy < RoomBlockRows(room); ++dy) {
        for (int dx = 0; dx < RoomBlockColumns(room); ++dx)
            PaintSprite(x + dx, y + dy, RoomBlockCode(room, dx, dy));
    }
}
