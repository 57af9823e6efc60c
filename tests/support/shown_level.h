#pragma once

#include "level_document.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

// What an undo must bring back: the saved bytes, the hero, the drawing colour, and each
// cell's map picture and dot, margin included, row by row.
struct Shown {
    QByteArray file;
    std::optional<QPoint> hero;
    QRgb drawingColour = 0;
    std::vector<std::pair<int, QRgb>> cells;
};

inline Shown shown(const LevelDocument& document) {
    const Level& level = document.level();
    Shown all{encodeLevelFile(level), level.hero(), document.minimap().drawingColour(), {}};
    for (int y = 0; y <= level.height(); ++y)
        for (int x = 0; x <= level.width(); ++x)
            all.cells.emplace_back(document.map().cellAt(x, y), document.minimap().dotAt(x, y));
    return all;
}

// The first thing in which two shown levels differ, or nothing.
inline QString difference(const Shown& a, const Shown& b) {
    if (a.cells.size() != b.cells.size()) return "the sizes differ";
    for (std::size_t i = 0; i < a.cells.size(); ++i)
        if (a.cells[i] != b.cells[i])
            return QString::asprintf("cell %zu: map %d and dot %x, not %d and %x", i,
                                     a.cells[i].first, a.cells[i].second, b.cells[i].first,
                                     b.cells[i].second);
    if (a.hero != b.hero || a.drawingColour != b.drawingColour) return "hero or drawing colour";
    return a.file == b.file ? QString() : QStringLiteral("the saved bytes differ");
}
