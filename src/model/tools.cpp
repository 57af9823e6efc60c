#include "tools.h"

#include "room_blocks.h"
#include "tile_codes.h"

namespace {
constexpr Tool PaletteTools[] = {
    {0, "Podlaha"},     {1, "Zeď"},        {23, "Židle"},     {24, "Stolek"},    {25, "Bedna"},
    {26, "Květináč"},   {134, "WC"},       {27, "Koš A"},     {28, "Koš B"},     {29, "Louže"},
    {124, "Peníze"},    {125, "Teleport"}, {126, "Život"},    {127, "Exit"},     {2, "Místnost A"},
    {3, "Místnost B"},  {4, "Místnost C"}, {5, "Místnost D"}, {6, "Místnost E"}, {7, "Místnost F"},
    {8, "Místnost G"},  {9, "Místnost H"}, {135, "Hrdina"},   {136, "Boss"},     {137, "Stráž"},
    {138, "Secret :)"},
};
}  // namespace

std::span<const Tool> paletteTools() {
    return PaletteTools;
}

ToolKind toolKind(int code) {
    if (code == WallToolCode) return ToolKind::Wall;
    if (code >= FirstRoomTool && code <= LastRoomTool) return ToolKind::Room;
    if (code == HeroCode) return ToolKind::Hero;
    if (code == FloorCode || (code >= FirstFurniture && code <= LastFurniture) ||
        (code >= FirstItem && code <= LastItem) || code == ToiletCode ||
        (code > HeroCode && code <= LastFigure))
        return ToolKind::SingleCell;
    return ToolKind::None;
}

QSize toolFootprint(int code) {
    if (toolKind(code) != ToolKind::Room) return {1, 1};
    const RoomBlock block = roomBlock(code - FirstRoomTool);
    return {block.columns, block.rows};
}
