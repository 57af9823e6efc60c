#pragma once

#include "map_canvas.h"

#include <QImage>

struct LevelBlock;
class SpriteSheet;
class ZoomedTiles;

// The largest side a block's picture may have: enough to see the cells, small enough for a
// chat or a document.
inline constexpr int MaxBlockPictureSide = 2048;

// The zoom step at which the map shows a width x height block within that side: full size
// where it fits, halved as often as needed.
int blockPictureZoomStep(int width, int height);

// The block laid on a map canvas of its own, so that it is painted as the map paints: each
// cell the sheet's picture of its code, cleared where a code has no picture.
MapCanvas blockCanvas(const LevelBlock& block);

// The block as the map shows it at that zoom step: each cell the sheet's picture of its code,
// grey where a code has no picture. `tiles` are the map's scaled cells of `sheet`.
QImage blockPicture(const LevelBlock& block, const SpriteSheet& sheet, ZoomedTiles& tiles);
