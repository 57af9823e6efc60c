#include "drawn_level.h"
#include "level_renderer.h"
#include "map_geometry.h"
#include "map_surface.h"
#include "shown_editor.h"
#include "tile_codes.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>

namespace {

constexpr QSize Screen(1920, 1080);

void BM_PaintVisibleMap(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    MapSurface surface(nullptr, drawn.renderer.map(), drawn.sheet);
    surface.resize(drawn.renderer.map().pixelSize());
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
    MinimapCanvas& minimap = drawn.renderer.minimap();
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
void BM_ApplyToolInWalls(benchmark::State& state) {
    DrawnLevel drawn(40);
    for (auto [x, y] : {std::pair{20, 20}, {19, 20}, {21, 20}, {20, 19}, {20, 21}})
        drawn.renderer.tools().applyTool(x, y, WallToolCode);
    for (auto _ : state) drawn.renderer.tools().applyTool(20, 20, WallToolCode);
}

// Left-button moves into 100 new cells, each followed by the repaints it scheduled; `cell`
// gives the map cell of the i-th event.
template <typename CellOf>
void paintStroke(benchmark::State& state, MapViewport& viewport, CellOf cell) {
    int pass = 0;
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            const QPoint at = cell(i, pass);
            viewport.mapMoved(Qt::LeftButton,
                              QPointF(TileSize * at.x() + 32, TileSize * at.y() + 32));
            QCoreApplication::processEvents();
        }
        ++pass;
    }
    state.counters["per_event"] =
        benchmark::Counter(double(state.iterations()) * 100,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    // A scroll moves the whole shown map, so its cost follows the viewport's size.
    state.counters["view_width"] = viewport.placement().width;
    state.counters["view_height"] = viewport.placement().height;
}

// A stroke inside the shown part of the map, clear of the edges that scroll it.
void BM_PaintStroke(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)));
    const QRect cells = shownCells(*editor.viewport);
    if (cells.width() * cells.height() < 2) return state.SkipWithError("map view too small");
    paintStroke(state, *editor.viewport, [&](int i, int pass) {
        const int n = i + 100 * pass;
        return cells.topLeft() + QPoint(n % cells.width(), (n / cells.width()) % cells.height());
    });
}

// A stroke along the row below the view's right edge: every event also scrolls the map.
void BM_PaintStrokeScrolling(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)));
    paintStroke(state, *editor.viewport, [&](int i, int pass) {
        const int side = static_cast<int>(state.range(0));
        return QPoint(3 + (i + 100 * pass) % (side - 6), 3 + pass % 2);
    });
}

}  // namespace

#define LEVEL_SIZES Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond)
BENCHMARK(BM_PaintVisibleMap)->LEVEL_SIZES;
BENCHMARK(BM_DrawScreenImage)->LEVEL_SIZES;
// The same again beside each zoom step of BM_PaintZoomedMap.
BENCHMARK(BM_DrawScreenImage)->DenseRange(0, 6)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintMinimap)->LEVEL_SIZES;
BENCHMARK(BM_DrawMinimapImage)->LEVEL_SIZES;
BENCHMARK(BM_ApplyToolInWalls)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintStroke)->Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintStrokeScrolling)->Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
