// Any bytes through the whole load path: the reader, then the whole-level redraw onto the
// canvases and the wall frame. A code without a picture stops the redraw; nothing may crash.
#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "tile_codes.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Level level;
    if (!readLevelFrom(level, buffer, LevelFileName).ok()) return 0;
    LevelRenderer renderer(level);
    if (renderer.repaintGrid()) renderer.drawFrame(WallToolCode);
    return 0;
}
