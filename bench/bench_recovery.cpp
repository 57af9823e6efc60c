#include "drawn_level.h"
#include "recovery_keeper.h"
#include "shown_editor.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <chrono>
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

using Clock = std::chrono::steady_clock;

// Left-button moves into 100 new cells, each followed by the repaints it scheduled (and, with
// recovery copies kept, whatever copy came due).
Clock::duration stroke(ShownEditor& editor, const QRect& cells, int pass) {
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < 100; ++i) {
        const int n = i + 100 * pass;
        const QPoint at =
            cells.topLeft() + QPoint(n % cells.width(), (n / cells.width()) % cells.height());
        editor.viewport->mapMoved(Qt::LeftButton,
                                  QPointF(TileSize * at.x() + 32, TileSize * at.y() + 32));
        QCoreApplication::processEvents();
    }
    return Clock::now() - start;
}

// The same strokes in two editors, one keeping recovery copies and one not, taken in turns so
// that the machine's load falls on both alike; the copies are written on their thread meanwhile.
void BM_StrokeWithRecovery(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    ShownEditor kept(side), plain(side);
    const QTemporaryDir stateFolder;
    RecoveryKeeper keeper(kept.document, stateFolder.filePath("recovery"));
    keeper.setLevelFile(kept.document.levelFile());
    keeper.startKeeping();
    const QRect cells = shownCells(*kept.viewport);
    if (cells.width() * cells.height() < 2) return state.SkipWithError("map view too small");
    Clock::duration with{}, without{};
    int pass = 0;
    for (auto _ : state) {
        // Which goes first changes every pass: the second finds the caches warmer.
        if (pass % 2) without += stroke(plain, cells, pass);
        with += stroke(kept, cells, pass);
        if (pass % 2 == 0) without += stroke(plain, cells, pass);
        ++pass;
    }
    keeper.waitForWrites();
    const auto perEvent = [&](Clock::duration time) {
        return std::chrono::duration<double, std::micro>(time).count() / (100.0 * pass);
    };
    state.counters["with_us"] = perEvent(with);
    state.counters["without_us"] = perEvent(without);
    state.counters["ratio"] = perEvent(with) / perEvent(without);
}

}  // namespace

BENCHMARK(BM_CopyGrid)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CopyBytes)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_StrokeWithRecovery)->Arg(40)->Arg(1000)->Unit(benchmark::kMillisecond);
