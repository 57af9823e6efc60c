#include "drawn_level.h"
#include "level_document.h"
#include "map_surface.h"
#include "shown_editor.h"
#include "tile_codes.h"
#include "zoomed_tiles.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QWheelEvent>

namespace {

constexpr QSize Screen(1920, 1080);

// A full repaint of a 1920 x 1080 view of a 1000 x 1000 level at each zoom step; at 1/64 the
// whole level is shown. The tiles of the step are made before the timing starts. Its
// reference is BM_DrawScreenImage at the same step: one drawImage of a ready screen image.
void BM_PaintZoomedMap(benchmark::State& state) {
    const int step = static_cast<int>(state.range(0));
    DrawnLevel drawn(1000);
    MapSurface surface(nullptr, drawn.renderer.map(), drawn.sheet);
    surface.setZoomStep(step);
    surface.resize(QSize(1000, 1000) * tileSizeAt(step));
    QImage target(Screen, QImage::Format_RGB32);
    const QRegion all(QRect(QPoint(0, 0), Screen));
    surface.render(&target, {}, all);
    for (auto _ : state) surface.render(&target, {}, all);
}

// Making the tiles of every step out, and the memory they keep.
void BM_ZoomedTilesMade(benchmark::State& state) {
    const SpriteSheet sheet = SpriteSheet::builtIn();
    std::size_t bytes = 0;
    for (auto _ : state) {
        ZoomedTiles tiles(sheet);
        for (int step = 1; step < ZoomStepCount; ++step) benchmark::DoNotOptimize(tiles.at(step));
        bytes = tiles.bytes();
    }
    state.counters["kept_MB"] = double(bytes) / 1e6;
}

// A Ctrl+wheel notch on a 1000 x 1000 level in a 1920 x 1080 window, from the event until the
// viewport and the minimap are repainted; notches go out from full size and back in.
void BM_ZoomNotch(benchmark::State& state) {
    ShownEditor editor(1000);
    QWidget* viewport = editor.viewport;
    const QPointF at(viewport->width() / 2.0, viewport->height() / 2.0);
    int notch = 0;
    for (auto _ : state) {
        const int out = (notch++ / 6) % 2 == 0 ? -120 : 120;
        QWheelEvent wheel(at, viewport->mapToGlobal(at), {}, {0, out}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &wheel);
        editor.window.repaint();
    }
}

// Area fills of the whole inside of a 1000 x 1000 level (about a million cells) through the
// document, the undo record included; then their undo and redo. Range 1: walls over floor;
// range 0: floor over those walls.
struct FilledDocument {
    explicit FilledDocument() {
        if (!document.loadSpriteSheet()) qFatal("no sprite sheet");
        document.newLevel(1000, 1000);
    }
    QTemporaryDir folder;
    LevelDocument document{QDir(folder.path())};
};

template <typename Fill>
void timeFill(benchmark::State& state, Fill fill) {
    FilledDocument filled;
    const int tool = state.range(0) == 0 ? FloorCode : WallToolCode;
    if (tool == FloorCode) fill(filled.document, WallToolCode);
    double undo = 0, redo = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        fill(filled.document, tool);
        state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        timer.restart();
        filled.document.undo();
        undo += double(timer.nsecsElapsed()) / 1e6;
        timer.restart();
        filled.document.redo();
        redo += double(timer.nsecsElapsed()) / 1e6;
        filled.document.undo();
    }
    state.counters["undo_ms"] = undo / double(state.iterations());
    state.counters["redo_ms"] = redo / double(state.iterations());
    state.counters["history_MB"] = double(filled.document.history().bytes()) / 1e6;
}

void BM_RectangleFill(benchmark::State& state) {
    timeFill(state, [](LevelDocument& document, int tool) {
        document.fillRectangle({2, 2}, {997, 997}, tool);
    });
}

void BM_FloodFill(benchmark::State& state) {
    timeFill(state, [](LevelDocument& document, int tool) {
        document.floodFill({500, 500}, tool);
    });
}

}  // namespace

BENCHMARK(BM_PaintZoomedMap)->DenseRange(0, ZoomStepCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZoomedTilesMade)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZoomNotch)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RectangleFill)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloodFill)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
