#include "sample_level.h"

#include "art_style.h"
#include "level.h"
#include "room_blocks.h"
#include "sheet.h"
#include "tile_codes.h"
#include "wall_pieces.h"

#include <QPainter>

#include <algorithm>
#include <string_view>

namespace Art {

namespace {

// '#' wall, '.' floor, A..H a room whose block starts at the letter's first cell, the other
// characters the single-cell objects below.
// clang-format off
constexpr std::string_view Map[] = {
    "..........................",
    ".########################.",
    ".#AAA.BBB.CCC.DDD.#.....#.",
    ".#AAA.BBB.CCC.DDD.#..M..#.",
    ".#AAA.BBB.CCC.DDD.#.....#.",
    ".#AAA.BBB.CCC.DDD.##.####.",
    ".#......................#.",
    ".#.h.t.....$.......g....#.",
    ".####.#######.#########.#.",
    ".#......#...............#.",
    ".#.EEEE.#.FFFF..GGGG..p.#.",
    ".#.EEEE.#.FFFF..GGGG....#.",
    ".#.EEEE.#.FFFF..GGGG..k.#.",
    ".#......#...............#.",
    ".#.HHHH.#..@..o...a.b.u.#.",
    ".#.HHHH.#.#.#.........w.#.",
    ".#.HHHH.#.s.#..l.......e#.",
    ".########################.",
    "..........................",
};
// clang-format on
static_assert(std::ranges::all_of(Map, [](std::string_view row) {
    return row.size() == Map[0].size();
}));

constexpr struct {
    char letter;
    qint16 code;
} Objects[] = {{'h', 23},  {'t', 24},  {'k', 25},  {'p', 26},  {'a', 27},  {'b', 28},
               {'u', 29},  {'$', 124}, {'o', 125}, {'l', 126}, {'e', 127}, {'w', 134},
               {'@', 135}, {'M', 136}, {'g', 137}, {'s', 138}};

}  // namespace

QImage drawSampleLevel(const QImage& sheet) {
    const int width = int(Map[0].size()), height = int(std::size(Map));
    Level level;
    level.reset(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            if (Map[y][x] == '#') level.setCell(x, y, WallToolCode);
            for (const auto& object : Objects)
                if (Map[y][x] == object.letter) level.setCell(x, y, object.code);
        }
    // Walls join their neighbours as the wall tool joins them; a straight wall's look varies
    // with its place instead of at random, so every run draws the same level.
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            if (Map[y][x] != '#') continue;
            const int key = wallKey({isWallAt(level, x - 1, y), isWallAt(level, x, y + 1),
                                     isWallAt(level, x + 1, y), isWallAt(level, x, y - 1)});
            int piece = wallPieceFor(key);
            if (key == HorizontalWallKey) piece += (x * 7 + y * 3) % 4;
            if (key == VerticalWallKey) piece += (x * 5 + y * 3) % 4;
            level.setCell(x, y, qint16(piece));
        }
    bool laid[RoomCount] = {};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int room = Map[y][x] - 'A';
            if (room < 0 || room >= RoomCount || laid[room]) continue;
            laid[room] = true;
            const RoomBlock block = roomBlock(room);
            for (int dy = 0; dy < block.rows; ++dy)
                for (int dx = 0; dx < block.columns; ++dx)
                    level.setCell(x + dx, y + dy, qint16(roomBlockCode(room, dx, dy)));
        }
    QImage picture(width * Cell, height * Cell, QImage::Format_RGB32);
    QPainter painter(&picture);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            painter.drawImage(QPoint(x * Cell, y * Cell), sheetCell(sheet, level.cell(x, y)));
    return picture;
}

}  // namespace Art
