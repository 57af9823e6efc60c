#pragma once

#include "placement.h"

// The arithmetic of the map view: pointer positions to cells, edge scrolling and the
// viewport frame on the minimap. All in single precision, as the map's geometry is kept.

inline constexpr float EdgeMargin = 64.0f;
inline constexpr float EdgeStep = EdgeMargin / 2;

// The cell under a pointer coordinate: the nearest whole number (a half going to the even
// one), then divided by the tile size with the fraction dropped.
int cellUnder(float coordinate, int tileSize);

// Edge scrolling after a cell was painted at (x, y) on the map: right, left, down, up, each
// check seeing the step of the one before. Returns the map with its new left and top.
Placement scrollAtEdges(Placement map, float x, float y, float viewportWidth, float viewportHeight);

// Where the viewport frame lies on the minimap, the map's cells `tileSize` pixels a side:
// divided before multiplied, not rounded.
Placement viewFrameFor(float mapLeft, float mapTop, float viewportWidth, float viewportHeight,
                       int tileSize);
