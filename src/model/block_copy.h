#pragma once

#include "level_block.h"

#include <QRect>

class Level;

// The codes of these cells, row by row, as they are: the part of `cells` that lies in the
// level proper (an empty block when none does).
LevelBlock copyBlock(const Level& level, const QRect& cells);
