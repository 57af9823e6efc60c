#pragma once

#include "history_step.h"
#include "sprite_painter.h"

#include <QPoint>

#include <cstddef>
#include <optional>
#include <vector>

class Level;
class LevelRenderer;

// What one edit of cells (a stroke, a rectangle fill, a flood fill) changed: every cell it
// wrote, in order, as it was and as it became, and the hero and the minimap's drawing colour
// before and after it.
struct CellEditRecord {
    std::vector<CellWrite> writes;
    std::optional<QPoint> heroBefore;
    std::optional<QPoint> heroAfter;
    QRgb drawingBefore = 0;
    QRgb drawingAfter = 0;
};

// An edit of cells as a step: undo writes the old states back in reverse order, redo the new ones
// in order, both through the sprite painter, so no wall piece is drawn anew.
class CellEdit : public HistoryStep {
  public:
    CellEdit(Level& level, LevelRenderer& renderer, CellEditRecord record);

    void undo() override;
    void redo() override;
    std::size_t bytes() const override;

  private:
    Level& level;
    LevelRenderer& renderer;
    CellEditRecord record;
};
