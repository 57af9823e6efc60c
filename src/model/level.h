#pragma once

#include <QtGlobal>

#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

// Makes new elements without a value, so that growing a grid that is written whole right
// after costs no pass of zeroes.
template <class T>
struct UnsetAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = UnsetAllocator<U>;
    };
    template <class U>
    void construct(U* place) {
        ::new (static_cast<void*>(place)) U;
    }
    template <class U, class... Args>
    void construct(U* place, Args&&... args) {
        ::new (static_cast<void*>(place)) U(std::forward<Args>(args)...);
    }
};

// The one level in memory: its two sizes, the grid of tile codes and the hero's start.
// The grid has one margin column x = GridWidth and one margin row y = GridHeight beyond the
// level proper; the whole-level redraw paints them, the level file never holds them.
class Level {
  public:
    qint16 GridWidth = 0;
    qint16 GridHeight = 0;
    // Unset until a hero is read or placed; unset reads as cell (0, 0).
    std::optional<int> HeroX;
    std::optional<int> HeroY;

    // Sets both sizes, forgets the hero and replaces the grid by (W + 1) x (H + 1) zeros.
    // Sizes are 0..MaxLevelSide; callers check them before anything is discarded.
    void Allocate(int width, int height);
    // The same, but the cells keep whatever they held: the caller writes every one.
    void AllocateUnwritten(int width, int height);

    bool contains(int x, int y) const {
        return x >= 0 && x <= GridWidth && y >= 0 && y <= GridHeight && !LevelGrid.empty();
    }
    qint16 cell(int x, int y) const { return LevelGrid[index(x, y)]; }
    // Only the file reader and the sprite painter write cells.
    void setCell(int x, int y, qint16 code) { LevelGrid[index(x, y)] = code; }

    // A row of the level proper, for the file reader and writer, which go row by row.
    qint16* row(int y) { return LevelGrid.data() + index(0, y); }
    const qint16* row(int y) const { return LevelGrid.data() + index(0, y); }

    int heroXOrOrigin() const { return HeroX.value_or(0); }
    int heroYOrOrigin() const { return HeroY.value_or(0); }

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * (GridWidth + 1) + static_cast<std::size_t>(x);
    }
    std::vector<qint16, UnsetAllocator<qint16>>
        LevelGrid;  // row by row, (GridWidth + 1) cells a row
};

// 1 when (x, y) lies strictly inside the level's outer ring of columns and rows 0 and at
// most W - 1, H - 1, and holds a wall piece; 0 otherwise. Never reads outside the grid.
qint16 IsWallAt(const Level& level, int x, int y);
