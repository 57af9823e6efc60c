#include "level.h"
#include "level_renderer.h"

void LevelRenderer::RedrawLevelCells(const std::function<int()>& pressWallTool) {
    const int width = level.GridWidth;
    const int height = level.GridHeight;
    minimap.resize(width, height);
    minimap.clear();
    map.clear();
    map.resize(width, height);
    sprites.PaintWholeGrid();
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
