#pragma once

#include <QColor>

#include <optional>

class MinimapCanvas;

// The dot colour of a tile code, tested in the table's order; none for codes the table does
// not know, which keep the previous drawing colour.
std::optional<QRgb> MinimapColourFor(int code, QRgb background);

// Sets the minimap's drawing colour by the code and draws the cell's dot with it.
void PlotMinimapCell(MinimapCanvas& minimap, int x, int y, int code);
