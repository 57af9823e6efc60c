#pragma once

#include <QSize>
#include <QString>

#include <span>

// The palette's tools, top to bottom: the code each paints and its caption. A tool's code is
// the sheet cell of its picture; the wall tool (1) and the rooms (2..9) paint other codes.
struct Tool {
    int code;
    const char* caption;
    QString name() const { return QString::fromUtf8(caption); }
};
std::span<const Tool> paletteTools();

enum class ToolKind {
    Wall,        // a wall piece that joins its neighbours
    Room,        // a room's whole block, its top-left cell at the cell painted
    Hero,        // the hero's start, of which the level holds one
    SingleCell,  // the code itself in one cell
    None,        // paints nothing
};
ToolKind toolKind(int code);

// The cells a tool covers, in map cells: a room's block, one cell for every other tool.
QSize toolFootprint(int code);
