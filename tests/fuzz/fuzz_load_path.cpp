// Any bytes through the whole load path: the reader, then the whole-level redraw onto the
// canvases. A code without a picture may stop the redraw; nothing may crash.
#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "recording_dialogs.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QImage>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const SpriteSheet sheet(QImage(640, 896, QImage::Format_RGB32));
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    RecordingDialogs dialogs;
    Level level;
    if (ReadLevelFrom(level, dialogs, buffer, "level99.VRK")) return 0;
    LevelRenderer renderer(level, sheet);
    try {
        renderer.RedrawLevelCells([] { return WallToolCode; });
    } catch (const SheetCellError&) {
    }
    return 0;
}
