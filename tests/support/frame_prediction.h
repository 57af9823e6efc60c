#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

// The wall piece for the walls around a cell, written without the editor's code. The key
// names the walls left, below, right and above as '1' or '0'; the two straight keys give
// their first look.
inline int predictedWallPiece(const std::string& key) {
    static const std::map<std::string, int> pieces = {
        {"0000", 14}, {"1000", 17}, {"0100", 15}, {"0010", 18}, {"0001", 16}, {"1010", 1},
        {"0101", 5},  {"1100", 20}, {"0110", 21}, {"0011", 22}, {"1001", 19}, {"1110", 10},
        {"0111", 12}, {"1011", 9},  {"1101", 11}, {"1111", 13}};
    return pieces.at(key);
}

// The frame of a new level as the wall rules predict it, computed without the editor's code.
inline std::map<std::pair<int, int>, int> predictedFrame(int w, int h) {
    std::map<std::pair<int, int>, int> wall;
    std::uint64_t state = 327680;
    auto draw = [&] {
        state = (state * 1140671485 + 12820163) & 0xFFFFFF;
        return float(state) / 16777216.0f;
    };
    auto isWall = [&](int x, int y) {
        return x > 0 && x < w && y > 0 && y < h && wall.count({x, y}) ? '1' : '0';
    };
    auto shape = [&](int x, int y) {
        const std::string key = {isWall(x - 1, y), isWall(x, y + 1), isWall(x + 1, y),
                                 isWall(x, y - 1)};
        const int first = predictedWallPiece(key);
        if (key == "1010" || key == "0101")
            wall[{x, y}] = draw() * 1000.0f < 500.0f ? first : first + 1 + int(draw() * 3);
        else
            wall[{x, y}] = first;
    };
    auto drawWall = [&](int x, int y) {
        shape(x, y);
        for (auto [nx, ny] : {std::pair{x - 1, y}, {x, y + 1}, {x + 1, y}, {x, y - 1}})
            if (isWall(nx, ny) == '1') shape(nx, ny);
    };
    for (int x = 1; x <= w - 2; ++x) drawWall(x, 1), drawWall(x, h - 2);
    for (int y = 1; y <= h - 2; ++y) drawWall(1, y), drawWall(w - 2, y);
    return wall;
}
