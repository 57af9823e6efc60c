#pragma once

#include <QColor>

#include <optional>

class MinimapCanvas;

// The dot colour of a tile code; none for codes without a colour of their own, whose dots
// keep the minimap's previous drawing colour.
std::optional<QRgb> minimapColourFor(int code, QRgb background);

// Sets the minimap's drawing colour by the code and draws the cell's dot with it.
void plotMinimapCell(MinimapCanvas& minimap, int x, int y, int code);
