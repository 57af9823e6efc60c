#include "zoomed_tiles.h"

#include "map_canvas.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QPainter>

const QImage& ZoomedTiles::at(int zoomStep) {
    if (sheet.image().cacheKey() != madeFrom) {
        tiles = {};
        madeFrom = sheet.image().cacheKey();
    }
    QImage& made = tiles[static_cast<std::size_t>(zoomStep)];
    if (!made.isNull()) return made;
    const int size = tileSizeAt(zoomStep);
    made = QImage(SheetColumns * size, SheetRows * size, QImage::Format_RGB32);
    const QSize picture = sheet.cellSize().boundedTo(QSize(TileSize, TileSize));
    QImage full(TileSize, TileSize, QImage::Format_RGB32);
    QPainter out(&made);
    for (int n = 0; n < SheetCellCount; ++n) {
        full.fill(MapBackground);
        QPainter tile(&full);
        tile.drawImage(QPoint(0, 0), sheet.image(), QRect(sheet.cellRect(n).topLeft(), picture));
        tile.end();
        out.drawImage(QPoint(n % SheetColumns * size, n / SheetColumns * size),
                      full.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return made;
}

std::size_t ZoomedTiles::bytes() const {
    std::size_t all = 0;
    for (const QImage& made : tiles) all += static_cast<std::size_t>(made.sizeInBytes());
    return all;
}
