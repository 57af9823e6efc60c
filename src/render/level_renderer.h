#pragma once

#include "map_canvas.h"
#include "minimap_canvas.h"
#include "random_generator.h"
#include "sprite_painter.h"
#include "tool_painter.h"

#include <QRect>

#include <array>

class Level;

// Everything that draws one level: the two canvases, the wall generator and the painters.
class LevelRenderer {
  public:
    explicit LevelRenderer(Level& level, QRgb minimapDrawingColour = qRgb(0, 0, 0));
    LevelRenderer(const LevelRenderer&) = delete;
    LevelRenderer& operator=(const LevelRenderer&) = delete;

    // The first half of a whole-level redraw: sizes both canvases and paints every cell from
    // the grid, the margin included. False when a code without a picture stopped it; the
    // cells painted before it stay, the rest show the background.
    [[nodiscard]] bool repaintGrid();
    // The second half: the wall frame one cell inside the level's edge, drawn with `tool`
    // along the top and bottom rows, then the left and right columns.
    void drawFrame(int tool);
    // The cells that drawing the frame with the wall tool can write on a level of `width` x
    // `height`, as four overlapping rectangles inside the level proper: the ring and the
    // cells on either side of it, along each edge.
    static std::array<QRect, 4> frameReach(int width, int height);

    // Takes what `drawn`, the renderer of another level object with the same cells, drew: its
    // canvases, its wall generator's state and whether its grid is shown whole. `drawn` gets
    // this one's. Nothing is told.
    void swapDrawing(LevelRenderer& drawn) noexcept;

    MapCanvas& map() { return mapCanvas; }
    const MapCanvas& map() const { return mapCanvas; }
    MinimapCanvas& minimap() { return minimapCanvas; }
    const MinimapCanvas& minimap() const { return minimapCanvas; }
    SpritePainter& sprites() { return spritePainter; }
    const SpritePainter& sprites() const { return spritePainter; }
    ToolPainter& tools() { return toolPainter; }
    RandomGenerator& random() { return generator; }
    const RandomGenerator& random() const { return generator; }

  private:
    Level& level;
    MapCanvas mapCanvas;
    MinimapCanvas minimapCanvas;
    RandomGenerator generator;
    SpritePainter spritePainter;
    ToolPainter toolPainter;
};
