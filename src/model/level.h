#pragma once

#include "grid_allocator.h"
#include "tile_codes.h"

#include <QPoint>
#include <QtGlobal>

#include <optional>
#include <vector>

// The one level in memory: its two sizes, the grid of tile codes and the hero's start.
// The grid has one margin column x = width() and one margin row y = height() beyond the
// level proper; the whole-level redraw paints them, the level file never holds them.
class Level {
  public:
    int width() const { return columns; }
    int height() const { return rows; }

    // Sets both sizes, forgets the hero and makes a grid of (W + 1) x (H + 1) floor cells.
    // Sizes are 0..MaxLevelSide; callers check them before anything is discarded.
    void reset(int width, int height);
    // The same, but the cells keep whatever they held: the caller writes every one.
    void resetUnwritten(int width, int height);

    bool contains(int x, int y) const {
        return x >= 0 && x <= columns && y >= 0 && y <= rows && !cells.empty();
    }
    qint16 cell(int x, int y) const { return cells[index(x, y)]; }
    // Only the file reader and the sprite painter write cells.
    void setCell(int x, int y, qint16 code) { cells[index(x, y)] = code; }

    // A row of the grid, for the file reader and writer and the renderers, which go by rows.
    qint16* row(int y) { return cells.data() + index(0, y); }
    const qint16* row(int y) const { return cells.data() + index(0, y); }

    // The hero's cell as last read or placed; unset until then.
    std::optional<QPoint> hero() const { return heroCell; }
    void setHero(std::optional<QPoint> cell) { heroCell = cell; }
    // An unset hero reads as cell (0, 0).
    QPoint heroOrOrigin() const { return heroCell.value_or(QPoint(0, 0)); }

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(columns + 1) +
               static_cast<std::size_t>(x);
    }

    int columns = 0;
    int rows = 0;
    std::optional<QPoint> heroCell;
    std::vector<qint16, GridAllocator<qint16>> cells;  // row by row, width + 1 cells a row
};

// Whether (x, y) lies strictly inside the level's outer ring (columns and rows 0 and W - 1,
// H - 1 never count) and holds a wall piece. Never reads outside the grid. Inline: every wall
// drawn asks it about itself and its four neighbours.
inline bool isWallAt(const Level& level, int x, int y) {
    return x > 0 && x < level.width() && y > 0 && y < level.height() &&
           isWallPiece(level.cell(x, y));
}

// Whether the level proper holds the hero's start anywhere: what Save asks for.
bool containsHero(const Level& level);
// What Save, and the level check, tell when it does not.
inline constexpr char NoHeroMessage[] = "Je nutné umístit počáteční pozici hrdiny";

// The first cell, column by column and the margin included, whose code has no picture: where
// the whole-level redraw stops.
std::optional<QPoint> firstCellWithoutPicture(const Level& level);
