#include "level_snapshot.h"

#include "level.h"
#include "level_renderer.h"
#include "minimap_dots.h"

#include <lz4.h>

#include <algorithm>
#include <vector>

namespace {

// LZ4: a grid is mostly runs, which it packs at memory speed; zlib's fastest level took ten
// to thirty times as long on a 1000 x 1000 level.
template <typename T>
QByteArray pack(const T* data, std::size_t count) {
    const auto size = static_cast<int>(count * sizeof(T));
    QByteArray packed(LZ4_compressBound(size), Qt::Uninitialized);
    const int length = LZ4_compress_default(reinterpret_cast<const char*>(data), packed.data(),
                                            size, static_cast<int>(packed.size()));
    packed.truncate(length);
    packed.squeeze();
    return packed;
}

template <typename T>
void unpack(const QByteArray& bytes, T* data, std::size_t count) {
    const auto size = static_cast<int>(count * sizeof(T));
    if (LZ4_decompress_safe(bytes.constData(), reinterpret_cast<char*>(data),
                            static_cast<int>(bytes.size()), size) != size)
        qFatal("a kept level does not unpack to its size");
}

template <typename T>
std::vector<T> unpacked(const QByteArray& bytes, std::size_t count) {
    std::vector<T> data(count);
    unpack(bytes, data.data(), count);
    return data;
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
        const qint16* shown = map.row(y);
        const qint16* codes = level.row(y);
        qint16* out = difference.data() + std::size_t(y) * width;
        for (int x = 0; x < width; ++x) out[x] = qint16(shown[x] ^ codes[x]);
    }
    return pack(difference.data(), difference.size());
}

// Each dot of a row against its code's own colour: zero where they agree.
template <typename Out>
void dotRowDifference(const qint16* codes, const QRgb* dots, int count, Out out) {
    const auto& own = ownDotColours();
    for (int x = 0; x < count; ++x) out(x, dots[x] ^ ownDotColour(codes[x], own));
}

// Whether every dot of a row has its code's own colour. Floor, most of a level, is compared
// sixteen cells at a time.
bool dotRowAgrees(const qint16* codes, const QRgb* dots, int count) {
    constexpr int Block = 16;
    const QRgb floor = ownDotColours()[FloorCode];
    QRgb differs = 0;
    int x = 0;
    for (; x + Block <= count; x += Block) {
        int notFloorCode = 0;
        for (int i = 0; i < Block; ++i) notFloorCode |= codes[x + i] ^ FloorCode;
        QRgb notFloorDot = 0;
        for (int i = 0; i < Block; ++i) notFloorDot |= dots[x + i] ^ floor;
        if (notFloorCode != 0 || notFloorDot != 0)
            dotRowDifference(codes + x, dots + x, Block, [&](int, QRgb dot) { differs |= dot; });
    }
    dotRowDifference(codes + x, dots + x, count - x, [&](int, QRgb dot) { differs |= dot; });
    return differs == 0;
}

QByteArray dotDifference(const Level& level, const MinimapCanvas& minimap) {
    if (minimap.columns() != level.width() || minimap.rows() != level.height()) return {};
    const int columns = level.width() + 1;
    const int rows = level.height() + 1;
    std::vector<QRgb> dots(static_cast<std::size_t>(columns));
    const auto dotRow = [&](int y) {
        minimap.dotColoursOfRow(y, dots.data());
        return dots.data();
    };
    int y = 0;
    while (y < rows && dotRowAgrees(level.row(y), dotRow(y), columns)) ++y;
    if (y == rows) return {};
    std::vector<QRgb> difference(std::size_t(columns) * std::size_t(rows));
    for (y = 0; y < rows; ++y) {
        QRgb* out = difference.data() + std::size_t(y) * columns;
        dotRowDifference(level.row(y), dotRow(y), columns,
                         [out](int x, QRgb differs) { out[x] = differs; });
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
    if (renderer.sprites().showsGrid()) return;  // as nearly always: nothing to look for
    mapCells = mapDifference(level, renderer.map());
    dots = dotDifference(level, renderer.minimap());
}

bool LevelSnapshot::restore(Level& level, LevelRenderer& renderer) const {
    if (grid.isEmpty()) {
        level.reset(width, height);
    } else {
        level.resetUnwritten(width, height);
        unpack(grid, level.row(0), std::size_t(width + 1) * std::size_t(height + 1));
    }
    level.setHero(hero);
    const bool painted = renderer.repaintGrid();
    if (!mapCells.isEmpty()) {
        const auto difference =
            unpacked<qint16>(mapCells, std::size_t(width) * std::size_t(height));
        std::vector<qint16> row(static_cast<std::size_t>(width));
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                row[x] = qint16(level.row(y)[x] ^ difference[std::size_t(y) * width + x]);
            renderer.map().drawRow(y, row.data(), width);
        }
    }
    if (!dots.isEmpty()) {
        const std::size_t columns = std::size_t(width) + 1;
        const auto difference = unpacked<QRgb>(dots, columns * (std::size_t(height) + 1));
        std::vector<QRgb> row(columns);
        for (int y = 0; y <= height; ++y) {
            // A kept difference against the own colours gives back the dot it was taken from.
            dotRowDifference(level.row(y), difference.data() + y * columns, int(columns),
                             [&row](int x, QRgb dot) { row[std::size_t(x)] = dot; });
            renderer.minimap().drawDotRow(y, row.data(), width + 1);
        }
    }
    if (!mapCells.isEmpty() || !dots.isEmpty()) renderer.sprites().forgetShownGrid();
    renderer.minimap().setDrawingColour(drawingColour);
    return painted;
}

std::size_t LevelSnapshot::bytes() const {
    return sizeof(LevelSnapshot) +
           std::size_t(grid.capacity() + mapCells.capacity() + dots.capacity());
}
