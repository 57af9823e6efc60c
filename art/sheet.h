#pragma once

#include <QImage>

namespace Art {

// The sprite sheet: 10 x 14 cells of 64 pixels, cell n showing tile code n.
QImage drawSheet();
QImage sheetCell(const QImage& sheet, int n);

}  // namespace Art
