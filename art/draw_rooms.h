#pragma once

#include <QImage>

namespace Art {

inline constexpr int RoomTotal = 8;
inline constexpr int DoorwayCell = 114;

struct RoomLayout {
    int topLeftCell;  // sheet cell of the block's top-left corner
    int columns;
    int rows;
    int doorColumn;  // bottom-row position that the shared doorway takes
};
RoomLayout roomLayout(int room);

// A whole room as laid on the map, its closed bottom wall where the doorway may go.
QImage drawRoom(int room);
// The doorway every room shares: a gap in the bottom wall with a mat before it.
QImage drawDoorway();

}  // namespace Art
