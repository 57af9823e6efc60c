#pragma once

// Tile codes as the level model sees them. A code is also the number of the sprite-sheet
// cell that shows it, so these constants serve the painters as well.
inline constexpr int FloorCode = 0;
inline constexpr int WallToolCode = 1;    // palette entry; never stored as such
inline constexpr int FirstWallPiece = 1;  // wall pieces 1..22 are what walls are stored as
inline constexpr int LastWallPiece = 22;
inline constexpr int FirstRoomTool = 2;  // palette entries 2..9 lay the rooms A..H
inline constexpr int LastRoomTool = 9;
inline constexpr int SharedRoomCell = 114;
inline constexpr int HeroCode = 135;
inline constexpr int SheetCellCount = 140;  // codes 0..139 have a picture

// The level file stores a cell as byte 48 + code, so it can carry codes 0..207.
inline constexpr int FileCodeOffset = 48;
inline constexpr int FileBorder = 7;  // floor cells the file adds on every side

// Largest level side accepted from a file or from New. The map is 64 pixels a cell and the
// minimap 6, so a 1000-cell side is a 64000-pixel map and a 6000-pixel minimap: far beyond
// any screen, still a few megabytes of state, and a whole redraw stays well under a second.
inline constexpr int MaxLevelSide = 1000;

constexpr bool isWallPiece(int code) {
    return code >= FirstWallPiece && code <= LastWallPiece;
}
