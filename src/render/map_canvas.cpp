#include "map_canvas.h"

#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

void MapCanvas::resize(int columns, int rows, NewCells newCells) {
    if (std::max(columns, 0) == width && std::max(rows, 0) == height && !cells.empty()) return;
    width = std::max(columns, 0);
    height = std::max(rows, 0);
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    cells.clear();
    if (newCells == NewCells::Cleared)
        cells.assign(count, Cleared);
    else
        cells.resize(count);  // the grid allocator gives them no value
    if (changed) changed(QRect(0, 0, width, height));
}

void MapCanvas::swapCells(MapCanvas& other) noexcept {
    std::swap(width, other.width);
    std::swap(height, other.height);
    cells.swap(other.cells);
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

namespace {
// `count` whole cells of N pixels, from their tiles' pixel row `tileLine` on; a size known
// when compiled makes each copy a single move.
template <int N>
void copyWholeCells(QRgb* out, const QRgb* const* start, int count, qsizetype tileLine) {
    for (int n = 0; n < count; ++n, out += N) std::memcpy(out, start[n] + tileLine, N * 4);
}
void copyWholeCells(QRgb* out, const QRgb* const* start, int count, qsizetype tileLine,
                    int tileSize) {
    if (tileSize == 4) return copyWholeCells<4>(out, start, count, tileLine);
    if (tileSize == 8) return copyWholeCells<8>(out, start, count, tileLine);
    for (int n = 0; n < count; ++n, out += tileSize)
        std::memcpy(out, start[n] + tileLine, std::size_t(tileSize) * 4);
}
// Cells of one or two pixels: each cell's pixels in a row looked up as one value of that
// many pixels. Kept scalar: GCC's vectorised form of the lookup gathers element by element
// and runs at half the speed.
#if defined(__GNUC__) && !defined(__clang__)
#define SCALAR_LOOPS __attribute__((optimize("no-tree-vectorize")))
#else
#define SCALAR_LOOPS
#endif
template <typename Pixels>
SCALAR_LOOPS void lookUpCells(Pixels* out, const qint16* row, int count, const Pixels* pixelsOf) {
    for (int x = 0; x < count; ++x) out[x] = pixelsOf[row[x] + 1];
}
// Cells of two pixels, both pixel rows of a row of cells at once.
SCALAR_LOOPS void lookUpCellPairs(QRgb* top, QRgb* bottom, const qint16* row, int count,
                                  const quint64* topPairs, const quint64* bottomPairs) {
    for (int x = 0; x < count; ++x) {
        const int cell = row[x] + 1;
        std::memcpy(top + 2 * x, topPairs + cell, sizeof(quint64));
        std::memcpy(bottom + 2 * x, bottomPairs + cell, sizeof(quint64));
    }
}
#undef SCALAR_LOOPS
}  // namespace

void MapCanvas::paintSmallTiles(const QRect& area, const QRgb* const* tileOf, qsizetype tileStride,
                                int tileSize, QImage& scratch) const {
    // For each tile row, the pixels of every cell's tile in it; [0] for a cleared cell.
    std::array<std::array<quint64, SheetCellCount + 1>, 2> pairOf{};
    std::array<QRgb, SheetCellCount + 1> colourOf{};
    colourOf[0] = MapBackground;
    for (int n = 0; n < SheetCellCount; ++n) colourOf[std::size_t(n) + 1] = *tileOf[n];
    for (std::size_t line = 0; line < 2; ++line) {
        pairOf[line][0] = quint64(MapBackground) << 32 | MapBackground;
        for (int n = 0; n < SheetCellCount && tileSize == 2; ++n)
            std::memcpy(&pairOf[line][std::size_t(n) + 1], tileOf[n] + qsizetype(line) * tileStride,
                        sizeof(quint64));
    }
    for (int y = 0; y < area.height();) {
        const int py = area.top() + y;
        const qint16* row = cells.data() + static_cast<std::size_t>(py / tileSize) * width;
        auto* out = reinterpret_cast<QRgb*>(scratch.scanLine(y));
        if (tileSize == 1) {
            lookUpCells(out, row + area.left(), area.width(), colourOf.data());
            ++y;
            continue;
        }
        // Two pixels a cell: both pixel rows of a cell row at once where both are shown; a
        // cell cut by the left or right edge gives one of its pixels.
        const bool both = py % 2 == 0 && y + 1 < area.height();
        auto* below = both ? reinterpret_cast<QRgb*>(scratch.scanLine(y + 1)) : out;
        const auto& pairs = pairOf[std::size_t(py % 2)];
        const auto pixelOf = [&](const std::array<quint64, SheetCellCount + 1>& of, int px) {
            const quint64 pair = of[std::size_t(row[px / 2] + 1)];
            return QRgb(px % 2 ? pair >> 32 : pair);
        };
        int px = area.left();
        const int end = area.right() + 1;
        int at = 0;
        if (px % 2) {
            out[0] = pixelOf(pairs, px);
            below[0] = pixelOf(both ? pairOf[1] : pairs, px);
            ++px;
            at = 1;
        }
        const int whole = (end - px) / 2;
        lookUpCellPairs(out + at, below + at, row + px / 2, whole, pairs.data(),
                        both ? pairOf[1].data() : pairs.data());
        px += 2 * whole;
        at += 2 * whole;
        if (px < end) {
            out[at] = pixelOf(pairs, px);
            below[at] = pixelOf(both ? pairOf[1] : pairs, px);
        }
        y += both ? 2 : 1;
    }
}

void MapCanvas::paintZoomed(QPainter& painter, const QRect& exposed, const QImage& tiles,
                            int tileSize, QImage& scratch) const {
    const QRect area = exposed.intersected(QRect(0, 0, width * tileSize, height * tileSize));
    if (area.isEmpty()) return;
    // The composed pixels go into a kept image: a fresh one would fault in its memory at
    // every repaint.
    if (scratch.width() < area.width() || scratch.height() < area.height())
        scratch = QImage(area.size().expandedTo(scratch.size()), QImage::Format_RGB32);
    const int firstColumn = area.left() / tileSize;
    const int lastColumn = area.right() / tileSize;
    const auto* tilePixels = reinterpret_cast<const QRgb*>(tiles.constBits());
    const qsizetype tileStride = tiles.bytesPerLine() / 4;
    std::array<const QRgb*, SheetCellCount> tileOf{};
    for (int n = 0; n < SheetCellCount; ++n)
        tileOf[static_cast<std::size_t>(n)] =
            tilePixels + n / SheetColumns * tileSize * tileStride + n % SheetColumns * tileSize;
    if (tileSize <= 2) {  // the pixels of a cell's tile row looked up as one value
        paintSmallTiles(area, tileOf.data(), tileStride, tileSize, scratch);
        painter.drawImage(area.topLeft(), scratch, QRect(QPoint(0, 0), area.size()));
        return;
    }
    // A cleared cell shows the background: a tile of its own, laid out as the others are.
    const std::vector<QRgb> background(static_cast<std::size_t>(tileStride * tileSize),
                                       MapBackground);
    // For each cell of a row, where its tile's pixels start.
    std::vector<const QRgb*> tileStart(static_cast<std::size_t>(lastColumn - firstColumn + 1));
    for (int py = area.top(); py <= area.bottom(); ++py) {
        const int inTile = py % tileSize;
        if (inTile == 0 || py == area.top()) {
            const qint16* row = cells.data() + static_cast<std::size_t>(py / tileSize) * width;
            for (int x = firstColumn; x <= lastColumn; ++x) {
                const int cell = row[x];
                tileStart[static_cast<std::size_t>(x - firstColumn)] =
                    cell == Cleared ? background.data() : tileOf[static_cast<std::size_t>(cell)];
            }
        }
        auto* out = reinterpret_cast<QRgb*>(scratch.scanLine(py - area.top()));
        const QRgb* const* start = tileStart.data();
        const qsizetype tileLine = tileStride * inTile;
        const auto part = [&](int from, int count) {
            out = std::copy_n(*start + tileLine + from, count, out);
            ++start;
        };
        // The first and last cells may be cut by the area's edges; those between are whole.
        int left = area.width();
        if (const int from = area.left() % tileSize; from != 0) {
            const int count = std::min(tileSize - from, left);
            part(from, count);
            left -= count;
        }
        const int whole = left / tileSize;
        copyWholeCells(out, start, whole, tileLine, tileSize);
        out += std::ptrdiff_t(whole) * tileSize;
        start += whole;
        if (const int rest = left - whole * tileSize; rest > 0) part(0, rest);
    }
    painter.drawImage(area.topLeft(), scratch, QRect(QPoint(0, 0), area.size()));
}
