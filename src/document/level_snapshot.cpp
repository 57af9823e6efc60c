#include "level_snapshot.h"

#include "level.h"
#include "level_renderer.h"
#include "minimap_dots.h"

#include <algorithm>
#include <cstring>

namespace {

// zlib's fastest level: a grid is mostly runs, which it packs almost as well as its best.
constexpr int Packing = 1;

template <typename T>
QByteArray pack(const T* data, std::size_t count) {
    QByteArray packed =
        qCompress(reinterpret_cast<const uchar*>(data), qsizetype(count * sizeof(T)), Packing);
    packed.squeeze();  // qCompress leaves room for data that does not pack
    return packed;
}

template <typename T>
const T* unpacked(const QByteArray& bytes) {
    return reinterpret_cast<const T*>(bytes.constData());
}

QRgb ownDotColour(qint16 code) {
    return hasPicture(code) ? ownDotColours()[code] : NoOwnColour;
}

// A canvas as the difference of each cell from what a repaint of the grid gives it, its
// code's picture or own dot colour: zero wherever they agree, so it packs to almost nothing.
// Empty when they agree everywhere (looked for first, as they nearly always do), and for a
// canvas of another size, never painted from the level, which a restore repaints.
QByteArray mapDifference(const Level& level, const MapCanvas& map) {
    const int width = level.width();
    const int height = level.height();
    if (map.columns() != width || map.rows() != height) return {};
    int y = 0;
    while (y < height && std::equal(map.row(y), map.row(y) + width, level.row(y))) ++y;
    if (y == height) return {};
    std::vector<qint16> difference(std::size_t(width) * std::size_t(height));
    for (y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            difference[std::size_t(y) * width + x] = qint16(map.row(y)[x] ^ level.row(y)[x]);
    }
    return pack(difference.data(), difference.size());
}

QByteArray dotDifference(const Level& level, const MinimapCanvas& minimap) {
    const int columns = level.width() + 1;
    const int rows = level.height() + 1;
    if (minimap.columns() != level.width() || minimap.rows() != level.height()) return {};
    const auto differs = [&](int x, int y) {
        return minimap.dotRow(y)[x] ^ ownDotColour(level.row(y)[x]);
    };
    bool any = false;
    for (int y = 0; y < rows && !any; ++y) {
        for (int x = 0; x < columns; ++x) any |= differs(x, y) != 0;
    }
    if (!any) return {};
    std::vector<QRgb> difference(std::size_t(columns) * std::size_t(rows));
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) difference[std::size_t(y) * columns + x] = differs(x, y);
    }
    return pack(difference.data(), difference.size());
}

}  // namespace

LevelSnapshot::LevelSnapshot(const Level& level, const LevelRenderer& renderer)
    : width(level.width()),
      height(level.height()),
      hero(level.hero()),
      drawingColour(renderer.minimap().drawingColour()) {
    // The level before the first New or Open has no cells yet: it comes back as an empty one.
    if (!level.contains(0, 0)) return;
    grid = pack(level.row(0), std::size_t(width + 1) * std::size_t(height + 1));
    mapCells = mapDifference(level, renderer.map());
    dots = dotDifference(level, renderer.minimap());
}

bool LevelSnapshot::restore(Level& level, LevelRenderer& renderer) const {
    if (grid.isEmpty()) {
        level.reset(width, height);
    } else {
        level.resetUnwritten(width, height);
        const QByteArray cells = qUncompress(grid);
        std::memcpy(level.row(0), cells.constData(), std::size_t(cells.size()));
    }
    level.setHero(hero);
    const bool painted = renderer.repaintGrid();
    if (!mapCells.isEmpty()) {
        const QByteArray difference = qUncompress(mapCells);
        std::vector<qint16> row(static_cast<std::size_t>(width));
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                row[x] = qint16(level.row(y)[x] ^ unpacked<qint16>(difference)[y * width + x]);
            renderer.map().drawRow(y, row.data(), width);
        }
    }
    if (!dots.isEmpty()) {
        const QByteArray difference = qUncompress(dots);
        std::vector<QRgb> row(std::size_t(width) + 1);
        for (int y = 0; y <= height; ++y) {
            for (int x = 0; x <= width; ++x)
                row[x] =
                    ownDotColour(level.row(y)[x]) ^ unpacked<QRgb>(difference)[y * (width + 1) + x];
            renderer.minimap().drawDotRow(y, row.data(), width + 1);
        }
    }
    renderer.minimap().setDrawingColour(drawingColour);
    return painted;
}

std::size_t LevelSnapshot::bytes() const {
    return sizeof(LevelSnapshot) +
           std::size_t(grid.capacity() + mapCells.capacity() + dots.capacity());
}
