#include "sprite_painter.h"

#include "level.h"
#include "map_canvas.h"
#include "minimap_canvas.h"
#include "minimap_dots.h"
#include "room_blocks.h"
#include "tile_codes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

bool SpritePainter::paintSprite(int x, int y, int code) {
    if (x < 0 || x > level.width() || y < 0 || y > level.height()) return false;
    if (!written) return store(x, y, code);
    const CellState before = cellState(x, y);
    const bool drawn = store(x, y, code);
    written->push_back({static_cast<qint16>(x), static_cast<qint16>(y), before, cellState(x, y)});
    return drawn;
}

bool SpritePainter::store(int x, int y, int code) {
    level.setCell(x, y, static_cast<qint16>(code));
    const int stored = level.cell(x, y);
    if (!hasPicture(stored)) {
        gridShown = false;
        return false;
    }
    map.drawCell(x, y, stored);
    plotMinimapCell(minimap, x, y, code);
    gridShown = gridShown && showsCode(x, y);
    return true;
}

bool SpritePainter::showsCode(int x, int y) const {
    const qint16 code = level.cell(x, y);
    const QRgb own = ownDotColour(code);
    const bool onMap = x < map.columns() && y < map.rows();
    return own != NoOwnColour && minimap.dotAt(x, y) == own && (!onMap || map.cellAt(x, y) == code);
}

CellState SpritePainter::cellState(int x, int y) const {
    return {level.cell(x, y), static_cast<qint16>(map.cellAt(x, y)), minimap.dotAt(x, y)};
}

void SpritePainter::restoreCell(int x, int y, const CellState& state) {
    level.setCell(x, y, state.code);
    map.drawCell(x, y, state.mapCell);
    minimap.setDot(x, y, state.dot);
    gridShown = gridShown && showsCode(x, y);
}

void SpritePainter::paintRoom(int x, int y, int room) {
    const RoomBlock block = roomBlock(room);
    for (int dy = 0; dy < block.rows; ++dy) {
        for (int dx = 0; dx < block.columns; ++dx)
            paintSprite(x + dx, y + dy, roomBlockCode(room, dx, dy));
    }
}

bool SpritePainter::paintWholeGrid() {
    const int width = level.width();
    const int height = level.height();
    const std::array<QRgb, SheetCellCount>& colourOf = ownDotColours();

    // Every cell before the failing one in column order is painted: in each row, the columns
    // left of it, and its own column in the rows above it.
    const std::optional<QPoint> failingCell = firstCellWithoutPicture(level);
    const bool fails = failingCell.has_value();
    const QPoint failing = failingCell.value_or(QPoint(-1, 0));
    // Every row is written whole, the cells not painted as background: no clear beforehand.
    // Dots are written as the minimap keeps them, by each code's colour index looked up once.
    std::array<quint8, SheetCellCount> dotOf{};
    for (int code = 0; code < SheetCellCount; ++code)
        dotOf[static_cast<std::size_t>(code)] = minimap.colourIndex(colourOf[code]);
    const quint8 inheritedDot = minimap.colourIndex(NoOwnColour);
    bool inherits = false;
    const auto columns = static_cast<std::size_t>(width) + 1;
    std::vector<quint8> dots(columns);
    std::vector<qint16> cells(fails ? columns : 0);
    for (int y = 0; y <= height; ++y) {
        const qint16* row = level.row(y);
        const int count = !fails ? width + 1 : failing.x() + (y < failing.y() ? 1 : 0);
        // Unrolled, the lookups of several cells overlap: a tenth off the whole repaint.
#pragma GCC unroll 8
        for (int x = 0; x < count; ++x) dots[x] = dotOf[static_cast<std::size_t>(row[x])];
        inherits = inherits || std::memchr(dots.data(), inheritedDot, count) != nullptr;
        std::fill(dots.begin() + count, dots.end(), MinimapCanvas::BackgroundIndex);
        if (fails) {
            std::fill(std::copy_n(row, count, cells.begin()), cells.end(), MapCanvas::Cleared);
            row = cells.data();
        }
        map.drawRow(y, row, width + 1);
        minimap.drawIndexedDotRow(y, dots.data(), width + 1);
    }
    gridShown = !fails && !inherits;

    // Dots of uncoloured codes take the drawing colour left by the dot before them, which a
    // second walk in column order hands on; without them, the last painted dot's colour.
    const QPoint last = !fails            ? QPoint(width, height)
                        : failing.y() > 0 ? failing - QPoint(0, 1)
                                          : QPoint(failing.x() - 1, height);
    if (inherits) {
        for (int x = 0; x <= last.x(); ++x) {
            for (int y = 0; y <= (x < last.x() ? height : last.y()); ++y) {
                const QRgb dot = minimap.dotAt(x, y);
                if (dot == NoOwnColour)
                    minimap.drawDot(x, y);
                else
                    minimap.setDrawingColour(dot);
            }
        }
    } else if (last.x() >= 0) {
        minimap.setDrawingColour(minimap.dotAt(last.x(), last.y()));
    }
    return !fails;
}
