#include "block_picture.h"

#include "blank_picture.h"
#include "level_block.h"
#include "map_canvas.h"
#include "tile_codes.h"
#include "zoomed_tiles.h"

#include <QPainter>

#include <algorithm>
#include <vector>

int blockPictureZoomStep(int width, int height) {
    const int side = std::max(width, height);
    int step = 0;
    while (step + 1 < ZoomStepCount && side * tileSizeAt(step) > MaxBlockPictureSide) ++step;
    return step;
}

MapCanvas blockCanvas(const LevelBlock& block) {
    MapCanvas canvas;
    canvas.resize(block.width, block.height);
    std::vector<qint16> row(static_cast<std::size_t>(std::max(block.width, 0)));
    for (int y = 0; y < block.height; ++y) {
        for (int x = 0; x < block.width; ++x) {
            const qint16 code = block.at(x, y);
            row[static_cast<std::size_t>(x)] = hasPicture(code) ? code : MapCanvas::Cleared;
        }
        canvas.drawRow(y, row.data(), block.width);
    }
    return canvas;
}

QImage blockPicture(const LevelBlock& block, const SpriteSheet& sheet, ZoomedTiles& tiles) {
    if (block.isEmpty()) return {};
    const MapCanvas canvas = blockCanvas(block);
    const int step = blockPictureZoomStep(block.width, block.height);
    const int tileSize = tileSizeAt(step);
    const QRect area(0, 0, block.width * tileSize, block.height * tileSize);
    // Both pictures are written whole once, so they are spared the page faults of fresh memory.
    QImage picture = blankPicture(area.width(), area.height());
    if (picture.isNull()) return picture;
    QPainter painter(&picture);
    if (step == 0) {
        canvas.paint(painter, area, sheet);
    } else {
        QImage scratch = blankPicture(area.width(), area.height());
        if (scratch.isNull()) return {};
        canvas.paintZoomed(painter, area, tiles.at(step), tileSize, scratch);
    }
    return picture;
}
