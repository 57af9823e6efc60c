#include "minimap_dots.h"

#include "minimap_canvas.h"

namespace {
struct DotColour {
    int first;
    int last;
    QRgb colour;
};
// Tested in this order: the items lie inside the room range and must win over it.
constexpr DotColour DotColours[] = {
    {23, 29, qRgb(128, 0, 0)},     {124, 127, qRgb(0, 0, 255)}, {30, 133, qRgb(0, 128, 0)},
    {134, 134, qRgb(0, 128, 128)}, {1, 22, qRgb(0, 0, 0)},      {135, 138, qRgb(255, 0, 0)},
};
}  // namespace

std::optional<QRgb> MinimapColourFor(int code, QRgb background) {
    if (code == 0) return background;
    for (const DotColour& row : DotColours) {
        if (code >= row.first && code <= row.last) return row.colour;
    }
    return std::nullopt;
}

void PlotMinimapCell(MinimapCanvas& minimap, int x, int y, int code) {
    if (const auto colour = MinimapColourFor(code, minimap.background()))
        minimap.setDrawingColour(*colour);
    minimap.drawDot(x, y);
}
