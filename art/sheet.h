#pragma once

#include <QImage>

namespace Art {

inline constexpr int SheetColumns = 10;
inline constexpr int SheetRows = 14;

// The sprite sheet: 10 x 14 cells of 64 pixels, cell n showing tile code n.
QImage drawSheet();
QImage sheetCell(const QImage& sheet, int n);
// A room's block as the editor lays it, cut from the sheet, the shared doorway in its place.
QImage roomBlock(const QImage& sheet, int room);

}  // namespace Art
