#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "ratio_reporter.h"
#include "tile_codes.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstring>

namespace {

// A level with walls, rooms and objects scattered over it, the same in every run.
Level sampleLevel(int side) {
    Level level;
    level.reset(side, side);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const int pick = (x * 7 + y * 13) % 10;
            level.setCell(x, y,
                          static_cast<qint16>(pick < 5   ? 0
                                              : pick < 7 ? 1 + pick
                                                         : 23 + pick));
        }
    return level;
}

const QTemporaryDir& folder() {
    static QTemporaryDir dir;
    return dir;
}
QString levelPath() {
    return folder().filePath("level99.VRK");
}

// Writes the sample level of the benchmark's size to the level file; false when it failed.
bool writeSample(benchmark::State& state) {
    const LevelWriteResult written =
        writeLevelFile(sampleLevel(static_cast<int>(state.range(0))), levelPath());
    if (!written.ok()) state.SkipWithError(qPrintable(written.failure));
    return written.ok();
}

void BM_ReadLevelFile(benchmark::State& state) {
    if (!writeSample(state)) return;
    Level level;
    for (auto _ : state) {
        if (!readLevelFile(level, levelPath()).ok()) {
            state.SkipWithError("the level was refused");
            break;
        }
    }
}

void BM_PlainFileRead(benchmark::State& state) {
    if (!writeSample(state)) return;
    for (auto _ : state) {
        QFile file(levelPath());
        file.open(QIODevice::ReadOnly);
        benchmark::DoNotOptimize(file.readAll());
    }
}

void BM_WriteLevelFile(benchmark::State& state) {
    const Level level = sampleLevel(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (!writeLevelFile(level, levelPath()).ok()) {
            state.SkipWithError("the level was not saved");
            break;
        }
    }
}

void BM_PlainFileWrite(benchmark::State& state) {
    const QByteArray bytes = encodeLevelFile(sampleLevel(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        QFile file(levelPath());
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
}

void BM_RedrawLevel(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    Level level = sampleLevel(side);
    LevelRenderer renderer(level);
    for (auto _ : state) {
        if (!renderer.repaintGrid()) {
            state.SkipWithError("a code without a picture");
            break;
        }
        renderer.drawFrame(WallToolCode);
    }
    state.counters["canvas_MB"] =
        double(sizeof(qint16) + sizeof(QRgb)) * (side + 1) * (side + 1) / 1e6;
}

// What the redraw writes at the least: every cell of the grid, the map and the minimap once.
void BM_MemsetCells(benchmark::State& state) {
    const std::size_t cells = std::size_t(state.range(0) + 1) * std::size_t(state.range(0) + 1);
    std::vector<qint16> grid(cells), map(cells);
    std::vector<QRgb> dots(cells);
    for (auto _ : state) {
        std::memset(grid.data(), 0, cells * sizeof(qint16));
        std::memset(map.data(), 1, cells * sizeof(qint16));
        std::memset(dots.data(), 2, cells * sizeof(QRgb));
        benchmark::ClobberMemory();
    }
}

}  // namespace

const std::map<std::string, std::string> ReferenceOf = {
    {"BM_ReadLevelFile", "BM_PlainFileRead"},   {"BM_WriteLevelFile", "BM_PlainFileWrite"},
    {"BM_RedrawLevel", "BM_MemsetCells"},       {"BM_PaintVisibleMap", "BM_DrawScreenImage"},
    {"BM_PaintMinimap", "BM_DrawMinimapImage"}, {"BM_PaintZoomedMap", "BM_DrawScreenImage"},
};

#define LEVEL_SIZES Arg(40)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond)
BENCHMARK(BM_ReadLevelFile)->LEVEL_SIZES;
BENCHMARK(BM_PlainFileRead)->LEVEL_SIZES;
BENCHMARK(BM_WriteLevelFile)->LEVEL_SIZES;
BENCHMARK(BM_PlainFileWrite)->LEVEL_SIZES;
BENCHMARK(BM_RedrawLevel)->LEVEL_SIZES;
BENCHMARK(BM_MemsetCells)->LEVEL_SIZES;
