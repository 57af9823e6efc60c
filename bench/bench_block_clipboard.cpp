#include "block_clipboard.h"
#include "block_picture.h"
#include "block_text.h"
#include "png_encoder.h"
#include "sprite_sheet.h"
#include "tile_codes.h"
#include "zoomed_tiles.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QRandomGenerator>

#include <cstring>
#include <ctime>

namespace {

LevelBlock randomBlock(int side) {
    QRandomGenerator random(24);
    LevelBlock block{side, side, {}};
    block.codes.resize(std::size_t(side) * std::size_t(side));
    for (qint16& code : block.codes) code = qint16(random.bounded(SheetCellCount));
    return block;
}

// The picture of a side x side block, as copy makes it.
QSize pictureSize(int side) {
    return QSize(side, side) * tileSizeAt(blockPictureZoomStep(side, side));
}

// The block's text, as copy puts it on the clipboard.
void BM_BlockText(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(encodeBlockText(block));
}

// Reading that text back, as paste does.
void BM_ReadBlockText(benchmark::State& state) {
    const QByteArray text = encodeBlockText(randomBlock(static_cast<int>(state.range(0))));
    for (auto _ : state) benchmark::DoNotOptimize(readBlockText(text));
}

// The block's picture, with the map's zoomed tiles already made.
void BM_BlockPicture(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    const SpriteSheet sheet = SpriteSheet::builtIn();
    ZoomedTiles tiles(sheet);
    for (int step = 1; step < ZoomStepCount; ++step) tiles.at(step);
    for (auto _ : state) benchmark::DoNotOptimize(blockPicture(block, sheet, tiles));
}

// The picture as PNG, as the clipboard serves it when a program asks for image/png: by the
// renderers' encoder, which compresses in bands on every processor (the processor time of all
// its threads is counted beside), or, for comparison, by Qt's writer, which setImageData alone
// would use.
void BM_BlockPng(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    const SpriteSheet sheet = SpriteSheet::builtIn();
    ZoomedTiles tiles(sheet);
    const QImage picture = blockPicture(block, sheet, tiles);
    const std::clock_t start = std::clock();
    for (auto _ : state) benchmark::DoNotOptimize(encodePng(picture));
    state.counters["all_threads_cpu_ms"] =
        1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC / double(state.iterations());
}

void BM_BlockPngQt(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    const SpriteSheet sheet = SpriteSheet::builtIn();
    ZoomedTiles tiles(sheet);
    const QImage picture = blockPicture(block, sheet, tiles);
    for (auto _ : state) {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        benchmark::DoNotOptimize(png.data());
    }
}

// A whole copy to the clipboard: text, picture and putting both there.
void BM_BlockCopy(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    const SpriteSheet sheet = SpriteSheet::builtIn();
    ZoomedTiles tiles(sheet);
    for (int step = 1; step < ZoomStepCount; ++step) tiles.at(step);
    const BlockClipboard clipboard;
    for (auto _ : state) clipboard.put(block, blockPicture(block, sheet, tiles));
}

// The floors: copying the block's codes, and the picture's pixels, as they are.
void BM_CopyBlockCodes(benchmark::State& state) {
    const LevelBlock block = randomBlock(static_cast<int>(state.range(0)));
    std::vector<qint16> copy(block.codes.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), block.codes.data(), copy.size() * sizeof(qint16));
        benchmark::ClobberMemory();
    }
}

void BM_CopyBlockPixels(benchmark::State& state) {
    const QSize size = pictureSize(static_cast<int>(state.range(0)));
    const QImage picture(size, QImage::Format_RGB32);
    QImage copy(size, QImage::Format_RGB32);
    for (auto _ : state) {
        std::memcpy(copy.bits(), picture.constBits(), std::size_t(picture.sizeInBytes()));
        benchmark::ClobberMemory();
    }
}

}  // namespace

BENCHMARK(BM_BlockText)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadBlockText)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyBlockCodes)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BlockPicture)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BlockPng)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BlockPngQt)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BlockCopy)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyBlockPixels)->Arg(500)->Unit(benchmark::kMillisecond);
