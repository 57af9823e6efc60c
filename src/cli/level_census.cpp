#include "level_census.h"

#include "level.h"
#include "room_blocks.h"
#include "tile_codes.h"
#include "tools.h"

#include <limits>
#include <utility>

namespace {

// Whether room `room`'s whole block lies with its top-left cell at (x, y), inside the level.
bool wholeRoomAt(const Level& level, int x, int y, int room) {
    const RoomBlock block = roomBlock(room);
    if (x + block.columns > level.width() || y + block.rows > level.height()) return false;
    for (int dy = 0; dy < block.rows; ++dy) {
        for (int dx = 0; dx < block.columns; ++dx)
            if (level.cell(x + dx, y + dy) != roomBlockCode(room, dx, dy)) return false;
    }
    return true;
}

// The room whose block starts with `code`, or -1.
int roomStartingWith(int code) {
    for (int room = 0; room < RoomCount; ++room)
        if (roomBlock(room).topLeft == code) return room;
    return -1;
}

QString strayNote(int code) {
    if (!hasPicture(code)) return QStringLiteral("bez obrázku");
    if (code >= FirstRoomCell && code <= LastRoomCell && !(code >= FirstItem && code <= LastItem))
        return QStringLiteral("část místnosti mimo celý blok");
    return QStringLiteral("není v paletě");
}

}  // namespace

LevelCensus takeCensus(const Level& level) {
    const int width = level.width();
    const int height = level.height();
    // Cells counted as part of a whole room; a block's cells are claimed by one room only,
    // since two whole blocks can never share a cell.
    std::vector<bool> inRoom(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    // Cells not in a whole room, by code: a table over every value a cell can hold.
    constexpr int Lowest = std::numeric_limits<qint16>::min();
    std::vector<int> codes(std::numeric_limits<quint16>::max() + 1);
    const auto slot = [](int code) { return static_cast<std::size_t>(code - Lowest); };
    int rooms[RoomCount] = {};
    for (int y = 0; y < height; ++y) {
        const qint16* row = level.row(y);
        for (int x = 0; x < width; ++x) {
            const int room = roomStartingWith(row[x]);
            if (room < 0 || !wholeRoomAt(level, x, y, room)) continue;
            ++rooms[room];
            const RoomBlock block = roomBlock(room);
            for (int dy = 0; dy < block.rows; ++dy)
                for (int dx = 0; dx < block.columns; ++dx)
                    inRoom[static_cast<std::size_t>(y + dy) * width + (x + dx)] = true;
        }
    }
    for (int y = 0; y < height; ++y) {
        const qint16* row = level.row(y);
        for (int x = 0; x < width; ++x)
            if (!inRoom[static_cast<std::size_t>(y) * width + x]) ++codes[slot(row[x])];
    }

    LevelCensus census;
    const auto take = [&](int first, int last) {
        int count = 0;
        for (int code = first; code <= last; ++code) count += std::exchange(codes[slot(code)], 0);
        return count;
    };
    for (const Tool& tool : paletteTools()) {
        int count = 0;
        if (toolKind(tool.code) == ToolKind::Wall)
            count = take(FirstWallPiece, LastWallPiece);
        else if (toolKind(tool.code) == ToolKind::Room)
            count = rooms[tool.code - FirstRoomTool];
        else
            count = take(tool.code, tool.code);
        if (count > 0) census.objects.push_back({tool.name(), count});
    }
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const int code = static_cast<int>(i) + Lowest;
        if (codes[i] > 0) census.strays.push_back({code, codes[i], strayNote(code)});
    }
    return census;
}
