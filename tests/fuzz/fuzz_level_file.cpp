// Any bytes as a level file: the reader either refuses the header or fills a level whose
// writer output reads back the same.
#include "level.h"
#include "level_file.h"
#include "recording_dialogs.h"

#include <QBuffer>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    RecordingDialogs dialogs;
    Level level;
    if (ReadLevelFrom(level, dialogs, buffer, "level99.VRK")) return 0;

    QByteArray written = EncodeLevelFile(level);
    QBuffer again(&written);
    again.open(QIODevice::ReadOnly);
    Level back;
    if (ReadLevelFrom(back, dialogs, again, "level99.VRK") || EncodeLevelFile(back) != written)
        std::abort();
    return 0;
}
