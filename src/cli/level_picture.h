#pragma once

#include <QImage>

class LevelRenderer;
class MapCanvas;
class MinimapCanvas;
class SpriteSheet;

// The most pixels a picture may have. Qt's image reader refuses images over 256 MB by
// default, so a larger picture (4 bytes a pixel) would not even open in a Qt program.
inline constexpr qint64 MaxPicturePixels = qint64(1) << 26;

// The largest cell size at which a width x height level's picture stays within the limit.
int largestCellSize(int width, int height);

// What the editor does right after it reads a level at start-up, with the wall tool selected:
// the whole grid onto the canvases, then the wall frame drawn by the wall tool with a fresh
// generator, so the frame's straight pieces come out as the editor draws them. False, with
// the frame not drawn, when a code without a picture stopped the grid.
[[nodiscard]] bool redrawAsAtStartUp(LevelRenderer& renderer);

// The map as the editor shows it, `cellSize` pixels a cell: at 64 exactly what the map
// paints, otherwise each of its 64-pixel cells smoothly scaled. Null when there is no memory.
QImage mapPicture(const MapCanvas& map, const SpriteSheet& sheet, int cellSize);

// The minimap as the editor shows it: 6 pixels a cell, each dot centred on its cell's corner.
QImage minimapPicture(const MinimapCanvas& minimap);
