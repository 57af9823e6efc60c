// The mouse on the map and on the minimap: painting, edge scrolling, dragging, the outline.
#include "form1.h"

#include "map_canvas.h"
#include "minimap_canvas.h"

namespace {
// A minimap coordinate as the map coordinate it stands for.
float onMap(float minimapCoordinate) {
    return minimapCoordinate / static_cast<float>(MinimapCellSize) * static_cast<float>(TileSize);
}
}  // namespace

void Form1::Picture2_MouseDown(int button, int shift, float x, float y) {
    if (button == RightButton) {
        DownX = x;
        DownY = y;
    } else if (button == LeftButton) {
        Picture2_MouseMove(button, shift, x, y);  // a single click paints
    }
}

void Form1::Picture2_MouseMove(int button, int, float x, float y) {
    if (button == RightButton) {
        const Placement map = Picture2->placement();
        moveMap(map.left + x - DownX, map.top + y - DownY);
        UpdateViewFrame();
    } else if (button == LeftButton) {
        const int column = CellUnder(x);
        const int row = CellUnder(y);
        if (!IsPaintableCell(column, row, level.GridWidth, level.GridHeight)) return;
        if (!(LastCellX == column && LastCellY == row)) {
            renderer.cells.DrawCell(column, row, SelectedCode);
            LastCellX = column;
            LastCellY = row;
            const Placement map = Picture2->placement();
            const MapPlacement scrolled =
                ScrollAtEdges({map.left, map.top, map.width, map.height}, x, y,
                              picture1Placement.width, picture1Placement.height);
            moveMap(scrolled.left, scrolled.top);
            UpdateViewFrame();
        }
    }
    moveOutline(x, y);
}

void Form1::Picture3_MouseDown(int button, int shift, float x, float y) {
    if (button == LeftButton) Picture2_MouseDown(button, shift, onMap(x), onMap(y));
}

void Form1::Picture3_MouseMove(int button, int shift, float x, float y) {
    if (button == NoButton) return;
    moveMap(-onMap(x) + picture1Placement.width / 2, -onMap(y) + picture1Placement.height / 2);
    UpdateViewFrame();
    if (button == LeftButton) Picture2_MouseMove(button, shift, onMap(x), onMap(y));
}

void Form1::moveMap(float left, float top) {
    Placement map = Picture2->placement();
    map.left = left;
    map.top = top;
    Picture2->move(map);
}

void Form1::moveOutline(float x, float y) {
    Placement outline = Shape2->placement();
    outline.left = static_cast<float>(CellUnder(x) * TileSize);
    outline.top = static_cast<float>(CellUnder(y) * TileSize);
    Shape2->move(outline);
}
