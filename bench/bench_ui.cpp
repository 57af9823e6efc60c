#include "canvas_surfaces.h"
#include "form1.h"
#include "level_renderer.h"
#include "recording_dialogs.h"
#include "tile_codes.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr QSize Screen(1920, 1080);

// A whole level drawn by the editor, with walls, rooms and objects over a quarter of it.
struct DrawnLevel {
    explicit DrawnLevel(int side) : renderer(level, sheet) {
        level.Allocate(side, side);
        for (int y = 2; y < side - 2; y += 3)
            for (int x = 2; x < side - 2; x += 5)
                renderer.cells.DrawCell(x, y, (x + y) % 3 ? 1 : 25);
        renderer.RedrawLevelCells([] { return WallToolCode; });
    }
    Level level;
    SpriteSheet sheet{QImage(":/sheet/EditPic.jpg")};
    LevelRenderer renderer;
};

void BM_PaintVisibleMap(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    MapSurface surface(nullptr, drawn.renderer.map, drawn.sheet);
    surface.resize(drawn.renderer.map.pixelSize());
    QImage target(Screen, QImage::Format_RGB32);
    for (auto _ : state) surface.render(&target, {}, QRegion(QRect(QPoint(0, 0), Screen)));
}

void BM_DrawScreenImage(benchmark::State& state) {
    QImage ready(Screen, QImage::Format_RGB32);
    ready.fill(Qt::darkGreen);
    QImage target(Screen, QImage::Format_RGB32);
    QPainter painter(&target);
    for (auto _ : state) painter.drawImage(0, 0, ready);
}

void BM_PaintMinimap(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    MinimapCanvas& minimap = drawn.renderer.minimap;
    QImage target(minimap.pixelSize(), QImage::Format_RGB32);
    QPainter painter(&target);
    for (auto _ : state) minimap.paint(painter, target.rect());
}

// The screen reference spread over the minimap's area: the ready screen image drawn as tiles
// that cover a surface of the minimap's size.
void BM_DrawMinimapImage(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0)) * MinimapCellSize;
    QImage ready(Screen, QImage::Format_RGB32);
    ready.fill(Qt::darkGreen);
    QImage target(side, side, QImage::Format_RGB32);
    QPainter painter(&target);
    for (auto _ : state) {
        for (int y = 0; y < side; y += Screen.height())
            for (int x = 0; x < side; x += Screen.width()) painter.drawImage(x, y, ready);
    }
}

// The wall tool on a cell whose four neighbours are walls: five pieces chosen and drawn.
void BM_DrawCellInWalls(benchmark::State& state) {
    DrawnLevel drawn(40);
    for (auto [x, y] : {std::pair{20, 20}, {19, 20}, {21, 20}, {20, 19}, {20, 21}})
        drawn.renderer.cells.DrawCell(x, y, WallToolCode);
    for (auto _ : state) drawn.renderer.cells.DrawCell(20, 20, WallToolCode);
}

// Painting with the left button held across 100 new cells of a shown 1920 x 1080 window,
// away from the edges that scroll, each event followed by the repaints it scheduled.
void BM_PaintStroke(benchmark::State& state) {
    RecordingDialogs dialogs;
    Form1 form(dialogs);
    form.Form_Load();
    form.Text1->setText(QString::number(state.range(0)));
    form.Text2->setText(QString::number(state.range(0)));
    form.Command1_Click();
    form.resize(Screen);
    form.show();
    QCoreApplication::processEvents();
    int pass = 0;
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            const int column = 3 + i % 20, row = 3 + i / 20 + 5 * (pass % 2);
            form.Picture2_MouseMove(1, 0, static_cast<float>(64 * column + 32),
                                    static_cast<float>(64 * row + 32));
            QCoreApplication::processEvents();
        }
        ++pass;
    }
    state.counters["per_event"] =
        benchmark::Counter(double(state.iterations()) * 100,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace

#define LEVEL_SIZES Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond)
BENCHMARK(BM_PaintVisibleMap)->LEVEL_SIZES;
BENCHMARK(BM_DrawScreenImage)->LEVEL_SIZES;
BENCHMARK(BM_PaintMinimap)->LEVEL_SIZES;
BENCHMARK(BM_DrawMinimapImage)->LEVEL_SIZES;
BENCHMARK(BM_DrawCellInWalls)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintStroke)->Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
