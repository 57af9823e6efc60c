#include "bench_application.h"
#include "shown_editor.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <vector>

// What a person sees while painting with the pointer held in the map view's edge bands: mouse
// moves at 200 a second, as a real mouse sends them, and the frames they bring. Each figure
// comes from a few seconds of a running event loop; its floor is the same loop with nothing
// to do at each move.

namespace {

constexpr int TickMilliseconds = 5;  // 200 events a second
constexpr int RunMilliseconds = 3000;

double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// A mouse that sends a move every TickMilliseconds for RunMilliseconds while the event loop
// runs: moves that come while the editor is busy wait in the queue and are taken one after
// another, as the window system's are. `send` gets each move's number (from 1) and the time
// it was sent on `clock`; the lateness of every move is kept, and the share of the time the
// process kept a processor busy is returned.
struct MouseRun {
    QElapsedTimer clock;
    std::vector<double> lateness;  // milliseconds from sending to taking
    int takenTogether = 1;         // moves the queue hands on at once, every takenTogether moves

    MouseRun() { clock.start(); }
    template <typename Send>
    double run(Send send) {
        QEventLoop loop;
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        timer.setInterval(TickMilliseconds * takenTogether);
        const qint64 from = clock.nsecsElapsed();
        int moves = 0;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            for (qint64 sent; (sent = from + qint64(moves + 1) * TickMilliseconds * 1000000) <=
                              clock.nsecsElapsed();) {
                lateness.push_back(static_cast<double>(clock.nsecsElapsed() - sent) * 1e-6);
                send(++moves, sent);
            }
        });
        QTimer::singleShot(RunMilliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        const double busyBefore = processorSeconds();
        timer.start();
        loop.exec();
        timer.stop();
        const double wall = static_cast<double>(clock.nsecsElapsed() - from) * 1e-9;
        return (processorSeconds() - busyBefore) / wall;
    }
};

double percentile(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    const auto at = static_cast<std::size_t>(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(at),
                     values.end());
    return values[at];
}

// The floor: the same mouse with nothing to do at each move. How late the moves are taken
// (the machine's share of every latency) and how busy the loop alone keeps the processor.
void BM_IdleTicks(benchmark::State& state) {
    for (auto _ : state) {
        MouseRun mouse;
        int moves = 0;
        state.counters["busy_pct"] = 100 * mouse.run([&](int move, qint64) { moves = move; });
        state.counters["moves"] = moves;
        state.counters["late_med_ms"] = percentile(mouse.lateness, 0.5);
        state.counters["late_p99_ms"] = percentile(mouse.lateness, 0.99);
    }
}

// The wall tool held in the bottom-right corner of a 1920 x 1080 map view over a 1000 x 1000
// level: every move paints a new cell and scrolls the map a step right and a step down.
// A frame is ready when the window's update request has been handled, painted and flushed;
// its latency counts from the first mouse move it shows. With an argument of 2, the moves
// reach the editor two at a time, as they do after it was busy for a moment.
void BM_EdgeScrollFrames(benchmark::State& state) {
    ShownEditor editor(1000);
    const Placement before = editor.viewport->placement();
    editor.window.resize(editor.window.size() +
                         QSize(1920 - qRound(before.width), 1080 - qRound(before.height)));
    QCoreApplication::processEvents();
    const Placement view = editor.viewport->placement();
    if (view.rounded().size() != QSize(1920, 1080))
        return state.SkipWithError("the map view is not 1920 x 1080");
    QWidget* client = editor.map->parentWidget();
    // Inside both 64-pixel bands, half a cell apart in phase across and down: with a
    // step of 32 under the pointer at every move, the column changes on every other move and
    // the row on the others. The pointer wobbles by a pixel, as a held hand does.
    const auto pointer = [&](int move) {
        return editor.map->mapFrom(client, QPointF(1904 + move % 2, 1040));
    };
    const Placement start = editor.map->placement();

    for (auto _ : state) {
        MouseRun mouse;
        mouse.takenTogether = static_cast<int>(state.range(0));
        int moves = 0, movesShown = 0, scrolls = 0;
        qint64 firstWaiting = -1;  // the first move no frame has shown yet
        bool painted = false;
        std::vector<double> latencies, paints;
        BenchApplication::afterEvent = [&](QObject* receiver, QEvent::Type type, qint64 took) {
            if (type == QEvent::Paint) painted = true;
            if (type == QEvent::Move && receiver == editor.map) ++scrolls;
            if (type != QEvent::UpdateRequest || receiver != &editor.window) return;
            if (painted && firstWaiting >= 0) {  // a frame, not a request put off
                latencies.push_back(static_cast<double>(mouse.clock.nsecsElapsed() - firstWaiting) *
                                    1e-6);
                paints.push_back(static_cast<double>(took) * 1e-6);
                firstWaiting = -1;
                movesShown = moves;
            }
            painted = false;
        };
        press(editor.map, pointer(0));
        QCoreApplication::processEvents();
        const double busy = mouse.run([&](int move, qint64 sent) {
            if (firstWaiting < 0) firstWaiting = sent;
            drag(editor.map, pointer(moves = move));
        });
        const double busySeconds = busy * RunMilliseconds * 1e-3;
        release(editor.map, pointer(moves));
        QCoreApplication::processEvents();
        BenchApplication::afterEvent = nullptr;

        const auto frames = static_cast<double>(latencies.size());
        const Placement end = editor.map->placement();
        state.counters["busy_pct"] = 100 * busy;
        state.counters["frames"] = frames;
        state.counters["moves"] = moves;
        state.counters["moves_per_frame"] = movesShown / frames;
        state.counters["scrolls_per_frame"] = scrolls / frames;  // the window's pixels moved
        state.counters["latency_med_ms"] = percentile(latencies, 0.5);
        state.counters["latency_p99_ms"] = percentile(latencies, 0.99);
        state.counters["latency_max_ms"] = percentile(latencies, 1);
        state.counters["late_med_ms"] = percentile(mouse.lateness, 0.5);
        state.counters["paint_med_ms"] = percentile(paints, 0.5);
        state.counters["cpu_per_frame_ms"] = 1e3 * busySeconds / frames;
        // Steps taken across and down per move (1 each when every move scrolls as it should).
        state.counters["steps_per_move"] =
            double(start.left - end.left + start.top - end.top) / 64 / (moves + 1);
    }
}

}  // namespace

BENCHMARK(BM_IdleTicks)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EdgeScrollFrames)->Arg(1)->Arg(2)->Iterations(1)->Unit(benchmark::kMillisecond);
