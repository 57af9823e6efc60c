#pragma once

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <vector>

class Level;

// A set of cells of a level that one area edit covers, computed on the grid alone before
// anything is written: a bitmap over its bounding rectangle.
class CellRegion {
  public:
    CellRegion() = default;
    explicit CellRegion(const QRect& bounds);

    const QRect& bounds() const { return box; }
    int count() const { return cellCount; }
    bool isEmpty() const { return cellCount == 0; }
    bool contains(int x, int y) const { return box.contains(x, y) && inside[offset(x, y)] != 0; }
    void add(int x, int y);
    // Calls visit(x, y) for every cell, row by row from the top-left.
    template <class Visit>
    void forEachCell(Visit&& visit) const {
        if (cellCount == 0) return;
        for (int y = box.top(); y <= box.bottom(); ++y) {
            const std::uint8_t* row = inside.data() + offset(box.left(), y);
            for (int x = 0; x < box.width(); ++x) {
                if (row[x] != 0) visit(box.left() + x, y);
            }
        }
    }

  private:
    std::size_t offset(int x, int y) const {
        return static_cast<std::size_t>(y - box.top()) * static_cast<std::size_t>(box.width()) +
               static_cast<std::size_t>(x - box.left());
    }

    QRect box;
    std::vector<std::uint8_t> inside;
    int cellCount = 0;
};

// Columns 2..W-3 and rows 2..H-3: the inside of the wall frame, where the mouse paints.
bool isInsideFrame(const Level& level, int x, int y);
// Those cells as a rectangle (empty when the level is too small to have any).
QRect cellsInsideFrame(const Level& level);

// The cells of the rectangle with these two corner cells, whichever way round (QRect::normalized
// would drop the corners' own rows and columns when the second lies left of or above the first).
QRect cellsBetween(QPoint corner, QPoint otherCorner);

// The cells of the rectangle with these two corners that lie inside the frame.
CellRegion rectangleRegion(const Level& level, QPoint corner, QPoint otherCorner);

// The cells inside the frame connected to `start` through left, right, up and down that hold
// the same thing as it: the same code, or for a wall piece any wall piece. Empty when `start`
// lies outside the frame.
CellRegion floodRegion(const Level& level, QPoint start);
