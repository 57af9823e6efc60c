#include "paint_stroke.h"

#include "level.h"
#include "level_renderer.h"

PaintStroke::PaintStroke(Level& level, LevelRenderer& renderer, StrokeRecord record)
    : level(level), renderer(renderer), record(std::move(record)) {
    this->record.writes.shrink_to_fit();
}

void PaintStroke::undo() {
    SpritePainter& sprites = renderer.sprites();
    for (auto write = record.writes.rbegin(); write != record.writes.rend(); ++write)
        sprites.restoreCell(write->x, write->y, write->before);
    level.setHero(record.heroBefore);
    renderer.minimap().setDrawingColour(record.drawingBefore);
}

void PaintStroke::redo() {
    SpritePainter& sprites = renderer.sprites();
    for (const CellWrite& write : record.writes) sprites.restoreCell(write.x, write.y, write.after);
    level.setHero(record.heroAfter);
    renderer.minimap().setDrawingColour(record.drawingAfter);
}

std::size_t PaintStroke::bytes() const {
    return sizeof(PaintStroke) + sizeof(void*) + record.writes.capacity() * sizeof(CellWrite);
}
