#include "cell_edit.h"

#include "level.h"
#include "level_renderer.h"

CellEdit::CellEdit(Level& level, LevelRenderer& renderer, CellEditRecord record)
    : level(level), renderer(renderer), record(std::move(record)) {
    // Room the record grew into goes back, unless it is little: moving a million writes costs.
    std::vector<CellWrite>& writes = this->record.writes;
    if (writes.capacity() - writes.size() > writes.size() / 8) writes.shrink_to_fit();
}

void CellEdit::undo() {
    SpritePainter& sprites = renderer.sprites();
    for (auto write = record.writes.rbegin(); write != record.writes.rend(); ++write)
        sprites.restoreCell(write->x, write->y, write->before);
    level.setHero(record.heroBefore);
    renderer.minimap().setDrawingColour(record.drawingBefore);
}

void CellEdit::redo() {
    SpritePainter& sprites = renderer.sprites();
    for (const CellWrite& write : record.writes) sprites.restoreCell(write.x, write.y, write.after);
    level.setHero(record.heroAfter);
    renderer.minimap().setDrawingColour(record.drawingAfter);
}

std::size_t CellEdit::bytes() const {
    return sizeof(CellEdit) + sizeof(void*) + record.writes.capacity() * sizeof(CellWrite);
}
