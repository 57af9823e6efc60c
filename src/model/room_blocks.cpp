#include "room_blocks.h"

#include "tile_codes.h"

namespace {
constexpr RoomBlock RoomBlocks[RoomCount] = {
    {30, 3, 4, 1}, {33, 3, 4, 1}, {70, 3, 4, 1}, {73, 3, 4, 1},
    {36, 4, 3, 1}, {66, 4, 3, 1}, {96, 4, 3, 2}, {110, 4, 3, 1},
};
}  // namespace

RoomBlock roomBlock(int room) {
    return room >= 0 && room < RoomCount ? RoomBlocks[room] : RoomBlock{0, 0, 0, 0};
}

int roomBlockCode(int room, int dx, int dy) {
    const RoomBlock block = roomBlock(room);
    if (dx < 0 || dx >= block.columns || dy < 0 || dy >= block.rows) return -1;
    if (dy == block.rows - 1 && dx == block.doorwayColumn) return DoorwayCode;
    return block.topLeft + SheetColumns * dy + dx;
}
