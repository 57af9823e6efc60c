#pragma once

// The eight ready-made rooms, A..H. Each is laid as a block of 12 cells whose codes are the
// sheet cells of its picture, row by row, except one cell of the bottom row: the doorway
// that every room shares.
inline constexpr int RoomCount = 8;

struct RoomBlock {
    int topLeft;  // sheet cell of the block's top-left corner
    int columns;
    int rows;
    int doorwayColumn;  // bottom-row position that shows the shared doorway
};

// Room 0..7 (A..H); a room outside 0..7 has a block of no cells.
RoomBlock roomBlock(int room);

// The code the room's block puts at block position (dx, dy), or -1 outside the block.
int roomBlockCode(int room, int dx, int dy);
