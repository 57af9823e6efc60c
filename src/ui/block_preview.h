#pragma once

#include "level_block.h"
#include "map_canvas.h"
#include "zoomed_tiles.h"

#include <QImage>
#include <QWidget>

class SpriteSheet;

// A block carried over the map before it is laid: its cells' pictures half transparent over
// the map, with an outline. The mouse goes through it.
class BlockPreview : public QWidget {
    Q_OBJECT

  public:
    BlockPreview(QWidget* map, const SpriteSheet& sheet);

    void setBlock(LevelBlock shown);
    const LevelBlock& block() const { return carried; }
    // Puts the block's top-left cell on `cell`, drawn as the map is at this zoom step.
    void showAt(QPoint cell, int step);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintCells(QPainter& painter, const QRect& area) const;

    const SpriteSheet& sheet;
    mutable ZoomedTiles zoomedTiles{sheet};
    LevelBlock carried;
    MapCanvas cells;  // the carried block, painted as the map paints
    mutable QImage scratch;
    int zoomStep = 0;
    int tile = tileSizeAt(0);
    // Zoomed out, the whole block is composed once and then only copied as it moves.
    QImage composed;
};
