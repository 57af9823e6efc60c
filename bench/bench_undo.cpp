#include "level_document.h"
#include "shown_editor.h"
#include "tile_codes.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double microseconds(Clock::duration time) {
    return std::chrono::duration<double, std::micro>(time).count();
}

// Left-button moves into 100 new cells with the wall tool, each followed by the repaints it
// scheduled; recorded, they run from a press to a release. The time of the moves alone.
Clock::duration stroke(ShownEditor& editor, const QRect& cells, int& next, bool recorded) {
    if (recorded) editor.document.beginStroke();
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < 100; ++i, ++next) {
        const QPoint at =
            cells.topLeft() + QPoint(next % cells.width(), (next / cells.width()) % cells.height());
        editor.viewport->mapMoved(Qt::LeftButton,
                                  QPointF(TileSize * at.x() + 32, TileSize * at.y() + 32));
        QCoreApplication::processEvents();
    }
    const Clock::duration time = Clock::now() - start;
    if (recorded) editor.document.endStroke();
    return time;
}

// The same strokes with and without recording, taking turns so that both see the same
// machine; the added share is the recording's cost per event.
void BM_StrokeRecording(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)));
    const QRect cells = shownCells(*editor.viewport);
    Clock::duration plain{}, recorded{};
    int next = 0;
    for (auto _ : state) {
        plain += stroke(editor, cells, next, false);
        recorded += stroke(editor, cells, next, true);
    }
    const double events = double(state.iterations()) * 100;
    state.counters["plain_us"] = microseconds(plain) / events;
    state.counters["recorded_us"] = microseconds(recorded) / events;
    state.counters["added_%"] = 100 * (double(recorded.count()) / double(plain.count()) - 1);
}

// Undo, then redo, of a recorded stroke over 100 cells of a 256 x 256 level, each with the
// repaints it schedules.
void BM_UndoRedoStroke(benchmark::State& state) {
    ShownEditor editor(256);
    const QRect cells = shownCells(*editor.viewport);
    int next = 0;
    stroke(editor, cells, next, true);
    Clock::duration undo{}, redo{};
    for (auto _ : state) {
        Clock::time_point start = Clock::now();
        editor.document.undo();
        QCoreApplication::processEvents();
        undo += Clock::now() - start;
        start = Clock::now();
        editor.document.redo();
        QCoreApplication::processEvents();
        redo += Clock::now() - start;
    }
    state.counters["undo_us"] = microseconds(undo) / double(state.iterations());
    state.counters["redo_us"] = microseconds(redo) / double(state.iterations());
}

// The first undo of a New on a 1000 x 1000 level (back to another 1000 x 1000 one), which
// also keeps the level the New left: the window shows the old level, repainted once; the New
// before each undo is not timed.
void BM_UndoNew(benchmark::State& state) {
    ShownEditor editor(1000);
    for (auto _ : state) {
        editor.newLevel(1000);
        const Clock::time_point start = Clock::now();
        editor.document.undo();
        QCoreApplication::processEvents();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

long residentKiB() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

// A 1000 x 1000 level of random codes as the document's level file.
bool writeRandomLevel(const LevelDocument& document, QRandomGenerator& random) {
    Level file;
    file.reset(1000, 1000);
    for (int y = 0; y < 1000; ++y)
        for (int x = 0; x < 1000; ++x) file.setCell(x, y, qint16(random.bounded(140)));
    return writeLevelFile(file, document.levelFile()).ok();
}

// New (even turns) or Open (odd ones) as the window makes them, recorded as a step.
bool replaceLevel(LevelDocument& document, int turn) {
    if (turn % 2 == 0) {
        document.newLevel(1000, 1000, LevelView{});
        return true;
    }
    return document.open(LevelView{}).ok();
}

// The history's memory with 100,000 wall strokes of 10 cells and 25 New and 25 Open of a
// 1000 x 1000 level of random codes, none of them dropped: the kept steps, the bytes the
// history counts, and the growth of the resident memory; all of it once more after every step
// is undone, when each New and Open also keeps the level it left.
void BM_HistoryMemory(benchmark::State& state) {
    for (auto _ : state) {
        QTemporaryDir folder;
        LevelDocument document{QDir(folder.path())};
        QRandomGenerator random(1);
        if (!writeRandomLevel(document, random)) return state.SkipWithError("file");
        const long before = residentKiB();
        for (int replacement = 0; replacement < 50; ++replacement) {
            if (!replaceLevel(document, replacement)) return state.SkipWithError("open");
            for (int i = 0; i < 2000; ++i) {
                document.beginStroke();
                const int row = 2 + random.bounded(990);
                const int column = 2 + random.bounded(980);
                for (int x = column; x < column + 10; ++x) document.applyTool(x, row, WallToolCode);
                document.endStroke();
            }
        }
        state.counters["steps"] = document.history().count();
        state.counters["history_MiB"] = double(document.history().bytes()) / (1 << 20);
        state.counters["resident_MiB"] = double(residentKiB() - before) / 1024;
        while (document.history().canUndo()) document.undo();
        state.counters["undone_steps"] = document.history().count();
        state.counters["undone_history_MiB"] = double(document.history().bytes()) / (1 << 20);
        state.counters["undone_resident_MiB"] = double(residentKiB() - before) / 1024;
    }
}

// The history held to 128 MiB through 80 New and Open of 1000 x 1000 levels of random codes,
// then every step undone, when each also keeps the level it left: the bytes it counts at both
// ends, and the process's peak resident memory (run it alone for that figure to be its own).
void BM_HistoryAtItsLimit(benchmark::State& state) {
    for (auto _ : state) {
        QTemporaryDir folder;
        LevelDocument document{QDir(folder.path())};
        document.setHistoryLimit(std::size_t(128) << 20);
        QRandomGenerator random(2);
        if (!writeRandomLevel(document, random)) return state.SkipWithError("file");
        std::size_t most = 0;
        for (int replacement = 0; replacement < 80; ++replacement) {
            if (!replaceLevel(document, replacement)) return state.SkipWithError("open");
            most = std::max(most, document.history().bytes());
        }
        state.counters["done_history_MiB"] = double(document.history().bytes()) / (1 << 20);
        while (document.history().canUndo()) {
            document.undo();
            most = std::max(most, document.history().bytes());
        }
        state.counters["undone_steps"] = document.history().count();
        state.counters["most_history_MiB"] = double(most) / (1 << 20);
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        state.counters["peak_resident_MiB"] = double(usage.ru_maxrss) / 1024;
    }
}

}  // namespace

BENCHMARK(BM_StrokeRecording)->Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UndoRedoStroke)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UndoNew)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_HistoryMemory)->Iterations(1)->Repetitions(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_HistoryAtItsLimit)->Iterations(1)->Repetitions(1)->Unit(benchmark::kMillisecond);
