#include "paint_stroke.h"

#include "level.h"
#include "level_renderer.h"

void PaintStroke::undoEdit() {
    SpritePainter& sprites = renderer.sprites();
    for (auto write = record->writes.rbegin(); write != record->writes.rend(); ++write)
        sprites.restoreCell(write->x, write->y, write->before);
    level.setHero(record->heroBefore);
    renderer.minimap().setDrawingColour(record->drawingBefore);
}

void PaintStroke::redoEdit() {
    SpritePainter& sprites = renderer.sprites();
    for (const CellWrite& write : record->writes)
        sprites.restoreCell(write.x, write.y, write.after);
    level.setHero(record->heroAfter);
    renderer.minimap().setDrawingColour(record->drawingAfter);
}

std::size_t PaintStroke::bytes() const {
    return sizeof(PaintStroke) + QtShare + sizeof(StrokeRecord) +
           record->writes.capacity() * sizeof(CellWrite);
}

std::unique_ptr<HistoryStep> PaintStroke::copy() const {
    return std::make_unique<PaintStroke>(level, renderer, record);
}
