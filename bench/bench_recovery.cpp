#include "drawn_level.h"
#include "recovery_keeper.h"
#include "shown_editor.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <cstring>
#include <memory>
#include <vector>

namespace {

// What the recovery keeper does on the UI thread for a copy: the grid copied whole.
void BM_CopyGrid(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto copy = std::make_shared<const Level>(drawn.level);
        benchmark::DoNotOptimize(copy.get());
    }
}

// The same number of bytes as the grid, memcpy'd into a buffer that is already there.
void BM_CopyBytes(benchmark::State& state) {
    const auto side = static_cast<std::size_t>(state.range(0)) + 1;  // with the margin
    const std::vector<qint16> grid(side * side, 1);
    std::vector<qint16> target(grid.size());
    for (auto _ : state) {
        std::memcpy(target.data(), grid.data(), grid.size() * sizeof(qint16));
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

// BM_PaintStroke's stroke with recovery copies kept: the keeper's timer and copies run among
// the events as they do in the editor, the writes on their thread.
void BM_PaintStrokeRecovered(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)));
    const QTemporaryDir stateFolder;
    RecoveryKeeper keeper(editor.document, stateFolder.filePath("recovery"));
    keeper.setLevelFile(editor.document.levelFile());
    keeper.startKeeping();
    const QRect cells = shownCells(*editor.viewport);
    if (cells.width() * cells.height() < 2) return state.SkipWithError("map view too small");
    int pass = 0;
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            const int n = i + 100 * pass;
            const QPoint at =
                cells.topLeft() + QPoint(n % cells.width(), (n / cells.width()) % cells.height());
            editor.viewport->mapMoved(Qt::LeftButton,
                                      QPointF(TileSize * at.x() + 32, TileSize * at.y() + 32));
            QCoreApplication::processEvents();
        }
        ++pass;
    }
    keeper.waitForWrites();
    state.counters["per_event"] =
        benchmark::Counter(double(state.iterations()) * 100,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace

BENCHMARK(BM_CopyGrid)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CopyBytes)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintStrokeRecovered)->Arg(40)->Arg(1000)->Unit(benchmark::kMicrosecond);
