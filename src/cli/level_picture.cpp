#include "level_picture.h"

#include "blank_picture.h"
#include "level_renderer.h"
#include "map_canvas.h"
#include "minimap_canvas.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QPainter>

#include <cmath>
#include <cstring>
#include <vector>

namespace {

// Tile index of the grey background, after the sheet's cells.
constexpr int BackgroundTile = SheetCellCount;

// Every sheet cell and the background as the map paints them, side by side in one strip of
// 64-pixel tiles, each scaled to `cellSize`. The canvas paints each cell clipped to its own
// square, so a tile does not depend on its neighbours.
QImage tileStrip(const SpriteSheet& sheet, int cellSize) {
    MapCanvas strip;
    strip.resize(SheetCellCount + 1, 1);
    for (int n = 0; n < SheetCellCount; ++n) strip.drawCell(n, 0, n);
    QImage tiles(strip.pixelSize(), QImage::Format_RGB32);
    {
        QPainter painter(&tiles);
        strip.paint(painter, tiles.rect(), sheet);
    }
    if (cellSize == TileSize) return tiles;
    QImage scaled(cellSize * (SheetCellCount + 1), cellSize, QImage::Format_RGB32);
    QPainter painter(&scaled);
    for (int n = 0; n <= SheetCellCount; ++n) {
        const QImage tile =
            tiles.copy(n * TileSize, 0, TileSize, TileSize)
                .scaled(cellSize, cellSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter.drawImage(n * cellSize, 0, tile);
    }
    return scaled;
}

}  // namespace

int largestCellSize(int width, int height) {
    const qint64 cells = qint64(width) * height;
    if (cells <= 0) return 0;
    auto side = static_cast<qint64>(std::sqrt(double(MaxPicturePixels) / double(cells)));
    while (side > 0 && cells * side * side > MaxPicturePixels) --side;
    while (cells * (side + 1) * (side + 1) <= MaxPicturePixels) ++side;
    return static_cast<int>(side);
}

bool redrawAsAtStartUp(LevelRenderer& renderer) {
    if (!renderer.repaintGrid()) return false;
    renderer.drawFrame(WallToolCode);
    return true;
}

QImage mapPicture(const MapCanvas& map, const SpriteSheet& sheet, int cellSize) {
    QImage picture = blankPicture(map.columns() * cellSize, map.rows() * cellSize);
    if (picture.isNull()) return picture;
    const QImage tiles = tileStrip(sheet, cellSize);
    const std::size_t lineBytes = static_cast<std::size_t>(cellSize) * sizeof(QRgb);
    std::vector<int> rowTiles(static_cast<std::size_t>(map.columns()));
    for (int y = 0; y < map.rows(); ++y) {
        for (int x = 0; x < map.columns(); ++x) {
            const int cell = map.cellAt(x, y);
            rowTiles[x] = cell == MapCanvas::Cleared ? BackgroundTile : cell;
        }
        // One pixel line of a whole map row at a time, each cell a copy of its tile's line.
        for (int line = 0; line < cellSize; ++line) {
            auto* out = reinterpret_cast<QRgb*>(picture.scanLine(y * cellSize + line));
            const auto* tileLine = reinterpret_cast<const QRgb*>(tiles.constScanLine(line));
            for (const int tile : rowTiles) {
                std::memcpy(out, tileLine + static_cast<std::ptrdiff_t>(tile) * cellSize,
                            lineBytes);
                out += cellSize;
            }
        }
    }
    return picture;
}

QImage minimapPicture(const MinimapCanvas& minimap) {
    QImage picture = blankPicture(minimap.pixelSize().width(), minimap.pixelSize().height());
    if (picture.isNull()) return picture;
    QPainter painter(&picture);
    minimap.paint(painter, picture.rect());
    return picture;
}
