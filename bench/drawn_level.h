#pragma once

#include "level.h"
#include "level_renderer.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QtGlobal>

// A whole level drawn by the editor: a wall or a crate on every fifth cell of every third
// row, then the redraw with its frame.
struct DrawnLevel {
    explicit DrawnLevel(int side) : renderer(level) {
        level.reset(side, side);
        for (int y = 2; y < side - 2; y += 3)
            for (int x = 2; x < side - 2; x += 5)
                renderer.tools().applyTool(x, y, (x + y) % 3 ? 1 : 25);
        if (!renderer.repaintGrid()) qFatal("the drawn level holds a code without a picture");
        renderer.drawFrame(WallToolCode);
    }
    MinimapCanvas& minimap() { return renderer.minimap(); }
    Level level;
    SpriteSheet sheet = SpriteSheet::builtIn();
    LevelRenderer renderer;
};
