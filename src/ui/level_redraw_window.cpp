// The whole-level redraw as the window shows it: hourglass, hidden map, loading label.
#include "form1.h"

#include "dialogs.h"
#include "editor_texts.h"
#include "map_canvas.h"
#include "minimap_canvas.h"
#include "tile_codes.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>

#include <exception>

void Form1::RedrawLevel() {
    try {
        showHourglass(true);
        Picture2->hide();
        Label3->show();
        Picture1->repaint();  // the loading label shows before the long work
        const float width = level.GridWidth;
        const float height = level.GridHeight;
        const float tile = TileSize;
        const float dot = MinimapCellSize;
        Picture3->move({10, static_cast<float>(Label2->height()), dot * width, dot * height});
        Picture2->move({0, 0, tile * width, tile * height});
        // Repainting once afterwards is cheaper than scheduling every cell.
        Picture2->deferUpdates(true);
        Picture3->deferUpdates(true);
        renderer.RedrawLevelCells([this] {
            QToolButton* wall = Option1.at(WallToolCode);
            if (!wall->isChecked()) {
                wall->setChecked(true);
                Option1_Click(WallToolCode);
            }
            return static_cast<int>(SelectedCode);
        });
        Picture2->deferUpdates(false);
        Picture3->deferUpdates(false);
        showHourglass(false);
        Picture2->show();
        Label3->hide();
        Picture1->show();
    } catch (const std::exception&) {
        // What was painted stays; the map stays hidden until a redraw completes.
        Picture3->deferUpdates(false);
        dialogs.error(EditorTexts::RedrawFailed);
    }
}
