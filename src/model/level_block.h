#pragma once

#include <QtGlobal>
#include <vector>

// A rectangle of tile codes taken out of a level, row by row: what copy takes, the clipboard
// carries and paste lays. Codes are kept as they were, wall pieces and room cells included.
struct LevelBlock {
    int width = 0;
    int height = 0;
    std::vector<qint16> codes;  // width * height codes, row after row

    bool isEmpty() const { return width <= 0 || height <= 0; }
    qint16 at(int x, int y) const {
        return codes[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)];
    }
    bool operator==(const LevelBlock&) const = default;
};
