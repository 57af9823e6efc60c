#pragma once

// Tile codes. A code is also the number of the sprite-sheet cell that shows it.
inline constexpr int FloorCode = 0;
inline constexpr int WallToolCode = 1;    // the wall tool; walls are stored as their pieces
inline constexpr int FirstWallPiece = 1;  // pieces 1..22: straight, corner, end and crossing
inline constexpr int LastWallPiece = 22;
inline constexpr int FirstRoomTool = 2;  // tools 2..9 lay the rooms A..H as blocks
inline constexpr int LastRoomTool = 9;
inline constexpr int FirstFurniture = 23;  // chair .. puddle
inline constexpr int LastFurniture = 29;
inline constexpr int FirstRoomCell = 30;  // the rooms' block cells lie in 30..133
inline constexpr int LastRoomCell = 133;
inline constexpr int DoorwayCode = 114;  // the doorway cell every room shares
inline constexpr int FirstItem = 124;    // money, teleport, extra life, exit
inline constexpr int LastItem = 127;
inline constexpr int ToiletCode = 134;
inline constexpr int HeroCode = 135;
inline constexpr int FirstFigure = 135;  // hero, boss, guard, secret
inline constexpr int LastFigure = 138;

// The sprite sheet: 10 x 14 cells, so codes 0..139 have a picture.
inline constexpr int SheetColumns = 10;
inline constexpr int SheetRows = 14;
inline constexpr int SheetCellCount = SheetColumns * SheetRows;

// The level file stores a cell as byte 48 + code, so it can carry codes 0..207.
inline constexpr int FileCodeOffset = 48;
inline constexpr int FileBorder = 7;  // floor cells the file adds on every side

// Largest level side accepted from a file or from New. The map is 64 pixels a cell, so a
// 1000-cell side is a 64000-pixel map: a few megabytes of state, and a redraw in milliseconds.
inline constexpr int MaxLevelSide = 1000;

constexpr bool isWallPiece(int code) {
    return code >= FirstWallPiece && code <= LastWallPiece;
}
constexpr bool hasPicture(int code) {
    return code >= 0 && code < SheetCellCount;
}
