#include "block_preview.h"
#include "level_document.h"
#include "shown_editor.h"
#include "tile_codes.h"
#include "zoomed_tiles.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <vector>

namespace {

// A 1000 x 1000 level in a document, drawn as DrawnLevel draws one: a wall or a crate on
// every fifth cell of every third row.
struct BlockDocument {
    BlockDocument() {
        if (!document.loadSpriteSheet()) qFatal("no sprite sheet");
        document.newLevel(1000, 1000);
        for (int y = 2; y < 998; y += 3)
            for (int x = 2; x < 998; x += 5) document.applyTool(x, y, (x + y) % 3 ? 1 : 25);
    }
    QTemporaryDir folder;
    LevelDocument document{QDir(folder.path())};
};

QRect blockCells(const benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    return {2, 2, side, side};
}

// Copy of a side x side selection: its codes taken out of the level (no clipboard).
void BM_CopyBlock(benchmark::State& state) {
    BlockDocument level;
    for (auto _ : state) benchmark::DoNotOptimize(level.document.copyBlock(blockCells(state)));
}

// The reference of them all: the block's rows copied as plain memory, out of a grid of the
// level's size into a vector, as little as any copy or laying of the block can cost.
void BM_CopyCells(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const std::vector<qint16> grid(1001 * 1001, 7);
    for (auto _ : state) {
        std::vector<qint16> block(static_cast<std::size_t>(side) * side);
        for (int y = 0; y < side; ++y)
            std::copy_n(grid.begin() + (y + 2) * 1001 + 2, side, block.begin() + y * side);
        benchmark::DoNotOptimize(block.data());
    }
}

// Paste of that block elsewhere, walls on its edge re-joined and the undo record made; then
// the undo and the redo of it. Only the named part is timed.
enum class PastePart { Paste, Undo, Redo };
template <PastePart Part>
void timePaste(benchmark::State& state) {
    BlockDocument level;
    LevelDocument& document = level.document;
    const LevelBlock block = document.copyBlock(blockCells(state));
    const QPoint at(451, 452);  // not on the block's own rows and columns of walls
    for (auto _ : state) {
        if (Part != PastePart::Paste) state.PauseTiming();
        document.placeBlock(block, at);
        if (Part == PastePart::Undo) state.ResumeTiming();
        document.undo();
        if (Part != PastePart::Redo) continue;
        state.ResumeTiming();
        document.redo();
        state.PauseTiming();
        document.undo();
        state.ResumeTiming();
    }
    state.counters["history_MB"] = double(document.history().bytes()) / 1e6;
}
void BM_PasteBlock(benchmark::State& state) {
    timePaste<PastePart::Paste>(state);
}
void BM_UndoPaste(benchmark::State& state) {
    timePaste<PastePart::Undo>(state);
}
void BM_RedoPaste(benchmark::State& state) {
    timePaste<PastePart::Redo>(state);
}

// A 100 x 100 block carried over a 1000 x 1000 level in a 1920 x 1080 window at a zoom step:
// each pointer move into a new cell, with the repaints it schedules (the map under the block's
// old and new place, and the block). Its reference is one screen image drawn, at the same step.
void BM_CarryBlock(benchmark::State& state) {
    ShownEditor editor(1000);
    MapViewport& viewport = *editor.viewport;
    viewport.zoomTo(static_cast<int>(state.range(0)),
                    {viewport.width() / 2.0, viewport.height() / 2.0});
    const int tile = viewport.tileSize();
    viewport.carryBlock(editor.document.copyBlock(QRect(2, 2, 100, 100)));
    // The shown cells clear of the edges that scroll the map.
    const Placement map = viewport.mapPlacement();
    const float reach = EdgeMargin + static_cast<float>(tile);
    const QRect cells(QPoint(int(-map.left + reach) / tile, int(-map.top + reach) / tile),
                      QPoint(int(-map.left + viewport.placement().width - reach) / tile - 1,
                             int(-map.top + viewport.placement().height - reach) / tile - 1));
    if (cells.width() < 2 || cells.height() < 1) return state.SkipWithError("view too small");
    int n = 0;
    for (auto _ : state) {
        const QPoint at = cells.topLeft() + QPoint(n % cells.width(), (n / 7) % cells.height());
        ++n;
        viewport.mapMoved(Qt::NoButton,
                          QPointF(tile * at.x() + tile / 2, tile * at.y() + tile / 2));
        QCoreApplication::processEvents();
    }
    if (!viewport.carriesBlock()) state.SkipWithError("the block was not carried");
    state.counters["tile"] = tile;
}

}  // namespace

BENCHMARK(BM_CopyBlock)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyCells)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PasteBlock)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UndoPaste)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RedoPaste)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CarryBlock)->DenseRange(0, ZoomStepCount - 1)->Unit(benchmark::kMicrosecond);
