// Any bytes as a level file: the reader either refuses the header or fills a level whose
// writer output reads back the same, without a warning.
#include "level.h"
#include "level_file.h"

#include <QBuffer>

#include <cstdlib>

namespace {
LevelReadResult readBytes(Level& level, QByteArray& bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readLevelFrom(level, buffer, LevelFileName);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Level level, back;
    if (!readBytes(level, bytes).ok()) return 0;
    QByteArray written = encodeLevelFile(level);
    const LevelReadResult again = readBytes(back, written);
    if (!again.ok() || !again.warning.isEmpty() || encodeLevelFile(back) != written) std::abort();
    return 0;
}
