#pragma once

#include "cell_drawer.h"
#include "map_canvas.h"
#include "minimap_canvas.h"
#include "random_generator.h"
#include "sprite_painter.h"

#include <functional>

class Level;
class SpriteSheet;

// Everything that draws one level: the two canvases, the generator and the painters.
struct LevelRenderer {
    LevelRenderer(Level& level, const SpriteSheet& sheet, QRgb minimapDrawingColour = qRgb(0, 0, 0))
        : level(level),
          minimap(minimapDrawingColour),
          sprites(level, sheet, map, minimap),
          cells(level, sprites, random) {}

    // The drawing part of the whole-level redraw: sizes and clears both canvases, paints
    // every cell from the grid including the margin, presses the wall tool and draws the
    // frame one cell inside the edge. `pressWallTool` selects the wall and returns the code
    // the frame is drawn with. A failure while painting the cells reaches the caller, with
    // the cells painted so far kept.
    void RedrawLevelCells(const std::function<int()>& pressWallTool);

    Level& level;
    MapCanvas map;
    MinimapCanvas minimap;
    RandomGenerator random;
    SpritePainter sprites;
    CellDrawer cells;
};
