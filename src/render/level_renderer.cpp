#include "level_renderer.h"

#include "level.h"

#include <utility>

LevelRenderer::LevelRenderer(Level& level, QRgb minimapDrawingColour)
    : level(level),
      minimapCanvas(minimapDrawingColour),
      spritePainter(level, mapCanvas, minimapCanvas),
      toolPainter(level, spritePainter, generator) {}

bool LevelRenderer::repaintGrid() {
    // The repaint writes every row whole.
    minimapCanvas.resize(level.width(), level.height(), MinimapCanvas::NewDots::Undefined);
    mapCanvas.resize(level.width(), level.height(), MapCanvas::NewCells::Undefined);
    return spritePainter.paintWholeGrid();
}

void LevelRenderer::swapDrawing(LevelRenderer& drawn) noexcept {
    mapCanvas.swapCells(drawn.mapCanvas);
    minimapCanvas.swapDots(drawn.minimapCanvas);
    spritePainter.swapShownGrid(drawn.spritePainter);
    std::swap(generator, drawn.generator);
}

void LevelRenderer::drawFrame(int tool) {
    const int width = level.width();
    const int height = level.height();
    for (int x = 1; x <= width - 2; ++x) {
        toolPainter.applyTool(x, 1, tool);
        toolPainter.applyTool(x, height - 2, tool);
    }
    for (int y = 1; y <= height - 2; ++y) {
        toolPainter.applyTool(1, y, tool);
        toolPainter.applyTool(width - 2, y, tool);
    }
}

std::array<QRect, 4> LevelRenderer::frameReach(int width, int height) {
    // The ring lies on columns 1 and width - 2 and rows 1 and height - 2; a wall drawn there
    // draws its wall neighbours again, all inside the level proper.
    const QRect level(0, 0, width, height);
    return {QRect(0, 0, width, 3) & level, QRect(0, height - 3, width, 3) & level,
            QRect(0, 0, 3, height) & level, QRect(width - 3, 0, 3, height) & level};
}
