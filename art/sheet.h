#pragma once

#include "tile_codes.h"

#include <QImage>

namespace Art {

// The sprite sheet: SheetColumns x SheetRows cells of 64 pixels, cell n showing tile code n.
QImage drawSheet();
QImage sheetCell(const QImage& sheet, int n);
// A room's block as the editor lays it, cut from the sheet, the shared doorway in its place.
QImage roomBlockPicture(const QImage& sheet, int room);

}  // namespace Art
