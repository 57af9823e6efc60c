#include "map_canvas.h"

#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QPainter>

#include <algorithm>
#include <vector>

void MapCanvas::resize(int columns, int rows) {
    if (std::max(columns, 0) == width && std::max(rows, 0) == height && !cells.empty()) return;
    width = std::max(columns, 0);
    height = std::max(rows, 0);
    cells.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Cleared);
    if (changed) changed(QRect(0, 0, width, height));
}

void MapCanvas::drawCell(int x, int y, int sheetCell) {
    if (x < 0 || x >= width || y < 0 || y >= height) return;
    cells[static_cast<std::size_t>(y) * width + x] = static_cast<qint16>(sheetCell);
    if (changed) changed(QRect(x, y, 1, 1));
}

void MapCanvas::drawRow(int y, const qint16* sheetCells, int count) {
    if (y < 0 || y >= height) return;
    const int drawn = std::clamp(count, 0, width);
    std::copy_n(sheetCells, drawn, cells.begin() + static_cast<std::ptrdiff_t>(y) * width);
    if (changed && drawn > 0) changed(QRect(0, y, drawn, 1));
}

int MapCanvas::cellAt(int x, int y) const {
    if (x < 0 || x >= width || y < 0 || y >= height) return Cleared;
    return cells[static_cast<std::size_t>(y) * width + x];
}

const qint16* MapCanvas::row(int y) const {
    return cells.data() + static_cast<std::size_t>(y) * width;
}

void MapCanvas::paint(QPainter& painter, const QRect& exposed, const SpriteSheet& sheet) const {
    const QRect area = exposed.intersected(QRect(QPoint(0, 0), pixelSize()));
    if (area.isEmpty()) return;
    const int firstColumn = area.left() / TileSize;
    const int lastColumn = area.right() / TileSize;
    const int firstRow = area.top() / TileSize;
    const int lastRow = area.bottom() / TileSize;
    const QSize picture = sheet.cellSize().boundedTo(QSize(TileSize, TileSize));
    const bool fillsCell = picture == QSize(TileSize, TileSize);
    painter.save();
    painter.setClipRect(area);
    for (int y = firstRow; y <= lastRow; ++y) {
        const qint16* row = cells.data() + static_cast<std::size_t>(y) * width;
        for (int x = firstColumn; x <= lastColumn; ++x) {
            const QRect target(x * TileSize, y * TileSize, TileSize, TileSize);
            const int cell = row[x];
            if (cell == Cleared || !fillsCell) painter.fillRect(target, QColor(MapBackground));
            if (cell == Cleared) continue;
            // Cells stored here were fetched from the sheet before they were drawn.
            const QRect source = sheet.cellRect(cell);
            painter.drawImage(QRect(target.topLeft(), picture), sheet.image(),
                              QRect(source.topLeft(), picture));
        }
    }
    painter.restore();
}

void MapCanvas::paintZoomed(QPainter& painter, const QRect& exposed, const QImage& tiles,
                            int tileSize) const {
    const QRect area = exposed.intersected(QRect(0, 0, width * tileSize, height * tileSize));
    if (area.isEmpty()) return;
    QImage composed(area.size(), QImage::Format_RGB32);
    const int firstColumn = area.left() / tileSize;
    const int lastColumn = area.right() / tileSize;
    // For each cell of a row, where its tile's pixels start in a tile row; a cleared cell
    // shows the background, kept as one more tile past the sheet's.
    std::vector<const QRgb*> tileStart(static_cast<std::size_t>(lastColumn - firstColumn + 1));
    std::vector<QRgb> background(static_cast<std::size_t>(tileSize), MapBackground);
    for (int py = area.top(); py <= area.bottom(); ++py) {
        const int y = py / tileSize;
        const int inTile = py % tileSize;
        const qint16* row = cells.data() + static_cast<std::size_t>(y) * width;
        if (inTile == 0 || py == area.top()) {
            for (int x = firstColumn; x <= lastColumn; ++x) {
                const int cell = row[x];
                tileStart[static_cast<std::size_t>(x - firstColumn)] =
                    cell == Cleared ? nullptr
                                    : reinterpret_cast<const QRgb*>(
                                          tiles.constScanLine(cell / SheetColumns * tileSize)) +
                                          cell % SheetColumns * tileSize;
            }
        }
        const auto tileLine = static_cast<qsizetype>(tiles.bytesPerLine() / 4) * inTile;
        auto* out = reinterpret_cast<QRgb*>(composed.scanLine(py - area.top()));
        // The first and last cells may be cut by the area's edges.
        const QRgb* const* start = tileStart.data();
        int from = area.left() % tileSize;
        for (int px = area.left(), end = area.right() + 1; px < end; ++start, from = 0) {
            const int count = std::min(tileSize - from, end - px);
            const QRgb* source = *start ? *start + tileLine + from : background.data();
            out = std::copy_n(source, count, out);
            px += count;
        }
    }
    painter.drawImage(area.topLeft(), composed);
}
