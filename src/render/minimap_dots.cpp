#include "minimap_dots.h"

#include "minimap_canvas.h"
#include "tile_codes.h"

namespace {
struct DotColour {
    int first;
    int last;
    QRgb colour;
};
// Tested in this order: the items lie inside the rooms' range and must win over it.
constexpr DotColour DotColours[] = {
    {FirstFurniture, LastFurniture, qRgb(128, 0, 0)}, {FirstItem, LastItem, ItemDotColour},
    {FirstRoomCell, LastRoomCell, qRgb(0, 128, 0)},   {ToiletCode, ToiletCode, qRgb(0, 128, 128)},
    {FirstWallPiece, LastWallPiece, qRgb(0, 0, 0)},   {FirstFigure, LastFigure, FigureDotColour},
};
}  // namespace

std::optional<QRgb> minimapColourFor(int code, QRgb background) {
    if (code == FloorCode) return background;
    for (const DotColour& row : DotColours) {
        if (code >= row.first && code <= row.last) return row.colour;
    }
    return std::nullopt;
}

void plotMinimapCell(MinimapCanvas& minimap, int x, int y, int code) {
    // Every code with a colour of its own has a picture: the table answers for all of them.
    const QRgb own = ownDotColour(code);
    if (own != NoOwnColour) minimap.setDrawingColour(own);
    minimap.drawDot(x, y);
}

const std::array<QRgb, SheetCellCount>& ownDotColours() {
    static const std::array<QRgb, SheetCellCount> table = [] {
        std::array<QRgb, SheetCellCount> colours;
        for (int code = 0; code < SheetCellCount; ++code)
            colours[code] = minimapColourFor(code, MinimapBackground).value_or(NoOwnColour);
        return colours;
    }();
    return table;
}
