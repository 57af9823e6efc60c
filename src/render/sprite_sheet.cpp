#include "sprite_sheet.h"

#include "tile_codes.h"

// RGB32 is the format the map's blits copy fastest; colours stay as they are.
SpriteSheet::SpriteSheet(QImage image) : sheet(image.convertToFormat(QImage::Format_RGB32)) {}

SpriteSheet SpriteSheet::builtIn() {
    return SpriteSheet(QImage(QStringLiteral(":/sheet/EditPic.jpg")));
}

bool SpriteSheet::usable(const QImage& image) {
    return image.width() >= SheetColumns && image.height() >= SheetRows;
}

QSize SpriteSheet::cellSize() const {
    return {sheet.width() / SheetColumns, sheet.height() / SheetRows};
}

QRect SpriteSheet::cellRect(int n) const {
    Q_ASSERT(hasPicture(n));
    const QSize size = cellSize();
    return {(n % SheetColumns) * size.width(), (n / SheetColumns) * size.height(), size.width(),
            size.height()};
}
