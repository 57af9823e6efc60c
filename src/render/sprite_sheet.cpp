#include "sprite_sheet.h"

#include "tile_codes.h"

#include <string>

SheetCellError::SheetCellError(int n)
    : std::out_of_range("no sprite-sheet cell " + std::to_string(n)), cell(n) {}

// RGB32 is the format the map's blits copy fastest; colours stay as they are.
SpriteSheet::SpriteSheet(QImage image) : sheet(image.convertToFormat(QImage::Format_RGB32)) {}

QRect SpriteSheet::cellRect(int n) const {
    if (n < 0 || n >= SheetCellCount) throw SheetCellError(n);
    const QSize size = cellSize();
    return {(n % SheetColumns) * size.width(), (n / SheetColumns) * size.height(), size.width(),
            size.height()};
}
