#pragma once

#include <QImage>

namespace Art {

// A whole room 0..7 as laid on the map, the size of its block, its closed bottom wall where the
// doorway may go.
QImage drawRoom(int room);
// The doorway every room shares: a gap in the bottom wall with a mat before it.
QImage drawDoorway();

}  // namespace Art
