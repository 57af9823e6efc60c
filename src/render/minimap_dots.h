#pragma once

#include "tile_codes.h"

#include <QColor>

#include <array>
#include <optional>

class MinimapCanvas;

// The dot colour of a tile code; none for codes without a colour of their own, whose dots
// keep the minimap's previous drawing colour.
std::optional<QRgb> minimapColourFor(int code, QRgb background);

// Sets the minimap's drawing colour by the code and draws the cell's dot with it.
void plotMinimapCell(MinimapCanvas& minimap, int x, int y, int code);

// Never a dot colour (every real one is opaque): marks codes without a colour of their own.
inline constexpr QRgb NoOwnColour = 0;
// The dot colour of every code with a picture on the usual background; NoOwnColour for the
// codes without a colour of their own.
const std::array<QRgb, SheetCellCount>& ownDotColours();
// A code's own dot colour from that table; NoOwnColour also for a code without a picture.
inline QRgb ownDotColour(int code, const std::array<QRgb, SheetCellCount>& own = ownDotColours()) {
    return hasPicture(code) ? own[static_cast<std::size_t>(code)] : NoOwnColour;
}
