#include "level.h"
#include "level_renderer.h"

void LevelRenderer::RedrawLevelCells(const std::function<int()>& pressWallTool) {
    const int width = level.GridWidth;
    const int height = level.GridHeight;
    minimap.resize(width, height);
    minimap.clear();
    map.clear();
    map.resize(width, height);
    // Column by column, margin included: the order decides the colour an unknown code's dot
    // inherits from the dot before it.
    for (int x = 0; x <= width; ++x) {
        for (int y = 0; y <= height; ++y) sprites.PaintSprite(x, y, level.cell(x, y));
    }
    const int tool = pressWallTool();
    for (int x = 1; x <= width - 2; ++x) {
        cells.DrawCell(x, 1, tool);
        cells.DrawCell(x, height - 2, tool);
    }
    for (int y = 1; y <= height - 2; ++y) {
        cells.DrawCell(1, y, tool);
        cells.DrawCell(width - 2, y, tool);
    }
}
