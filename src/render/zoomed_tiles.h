#pragma once

#include <QImage>

#include <array>
#include <cstddef>

class SpriteSheet;

// The map's zoom steps: a cell 64 pixels a side at full size, then halved at each step down to
// one pixel.
inline constexpr int ZoomStepCount = 7;
constexpr int tileSizeAt(int zoomStep) {
    return 64 >> zoomStep;
}

// The sheet's cells as the zoomed-out map shows them: each cell's 64-pixel square as the
// full-size map draws it (its picture, grey where the picture does not reach), scaled smoothly
// to the step's size once and kept, laid out 10 x 14 as on the sheet.
class ZoomedTiles {
  public:
    explicit ZoomedTiles(const SpriteSheet& sheet) : sheet(sheet) {}

    // The tiles of zoom step 1 or further out; made on first use, and again after the sheet
    // changed.
    const QImage& at(int zoomStep);
    std::size_t bytes() const;

  private:
    const SpriteSheet& sheet;
    qint64 madeFrom = 0;  // the cache key of the sheet image the tiles were made from
    std::array<QImage, ZoomStepCount> tiles;
};
