#pragma once

#include <QString>

#include <vector>

class Level;

// How many of each object a level holds, by the palette's names, in the palette's order.
struct CensusEntry {
    QString name;
    int count = 0;
};

// Cells of the level that no palette object accounts for, by code.
struct StrayCode {
    int code = 0;
    int count = 0;
    QString note;  // what kind of code it is, e.g. part of a room outside a whole block
};

struct LevelCensus {
    std::vector<CensusEntry> objects;  // only objects the level holds
    std::vector<StrayCode> strays;     // by code, ascending
};

// Counts the level proper (not the margin). Every wall piece counts as "Zeď". A room counts
// once for each whole block of it: its top-left cell with every other cell of the block in
// place; cells of rooms that are not in a whole block are strays.
LevelCensus takeCensus(const Level& level);
