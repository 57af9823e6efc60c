#include "level.h"
#include "map_canvas.h"
#include "minimap_canvas.h"
#include "minimap_dots.h"
#include "sprite_painter.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

// Never a dot colour (every real one is opaque): marks dots that inherit their colour.
constexpr QRgb Inherited = 0;

bool hasPicture(int code) {
    return code >= 0 && code < SheetCellCount;
}

// Whether any of the codes lacks a picture. A maximum is a reduction the compiler vectorises;
// negative codes count as large ones.
bool anyWithoutPicture(const qint16* codes, int count) {
    quint16 highest = 0;
    for (int x = 0; x < count; ++x) highest = std::max(highest, static_cast<quint16>(codes[x]));
    return highest >= SheetCellCount;
}

// The first cell, column by column, whose code has no picture; x is -1 when there is none.
QPoint firstCellWithoutPicture(const Level& level) {
    QPoint first(-1, 0);
    for (int y = 0; y <= level.GridHeight; ++y) {
        const qint16* row = level.row(y);
        // Only a column left of one already found comes earlier.
        const int columns = first.x() < 0 ? level.GridWidth + 1 : first.x();
        if (!anyWithoutPicture(row, columns)) continue;
        first = QPoint(static_cast<int>(std::find_if_not(row, row + columns, hasPicture) - row), y);
    }
    return first;
}

}  // namespace

void SpritePainter::PaintWholeGrid() {
    const int width = level.GridWidth;
    const int height = level.GridHeight;
    static const std::array<QRgb, SheetCellCount> colourOf = [] {
        std::array<QRgb, SheetCellCount> table;
        for (int code = 0; code < SheetCellCount; ++code)
            table[code] = MinimapColourFor(code, MinimapBackground).value_or(Inherited);
        return table;
    }();

    // Every cell before the failing one in column order is painted: in each row, the columns
    // left of it, and its own column in the rows above it.
    const QPoint failing = firstCellWithoutPicture(level);
    const bool fails = failing.x() >= 0;
    bool inherits = false;
    std::vector<QRgb> colours(static_cast<std::size_t>(width) + 1);
    for (int y = 0; y <= height; ++y) {
        const qint16* row = level.row(y);
        const int count = !fails ? width + 1 : failing.x() + (y < failing.y() ? 1 : 0);
        for (int x = 0; x < count; ++x) {
            colours[x] = colourOf[row[x]];
            inherits |= colours[x] == Inherited;
        }
        map.drawRow(y, row, count);
        minimap.drawDotRow(y, colours.data(), count);
    }

    // Dots of uncoloured codes take the drawing colour left by the dot before them, which a
    // second walk in column order hands on; without them, the last painted dot's colour.
    const QPoint last = !fails            ? QPoint(width, height)
                        : failing.y() > 0 ? failing - QPoint(0, 1)
                                          : QPoint(failing.x() - 1, height);
    if (inherits) {
        for (int x = 0; x <= last.x(); ++x) {
            for (int y = 0; y <= (x < last.x() ? height : last.y()); ++y) {
                const QRgb dot = minimap.dotAt(x, y);
                if (dot == Inherited)
                    minimap.drawDot(x, y);
                else
                    minimap.setDrawingColour(dot);
            }
        }
    } else if (last.x() >= 0) {
        minimap.setDrawingColour(minimap.dotAt(last.x(), last.y()));
    }
    if (fails) throw SheetCellError(level.cell(failing.x(), failing.y()));
}
