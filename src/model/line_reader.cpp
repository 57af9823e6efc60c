#include "line_reader.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace {
// Every block is read into the same memory: a fresh array for each block would be fresh
// pages, each faulted in on its first write. Smaller blocks cost more reads.
constexpr qint64 BlockSize = 1 << 18;
}  // namespace

bool LineReader::fill() {
    for (;;) {
        if (position >= filled) {
            const qint64 wanted = std::min(BlockSize, unread);
            if (buffer.size() < wanted) buffer.resize(static_cast<qsizetype>(wanted));
            filled =
                static_cast<qsizetype>(std::max<qint64>(device.read(buffer.data(), wanted), 0));
            unread -= filled;
            position = 0;
            if (filled == 0) return false;
        }
        if (!skipLineFeed) return true;
        skipLineFeed = false;  // a line feed right after a carriage return ends that line too
        if (buffer.at(position) == '\n') ++position;
    }
}

bool LineReader::atEnd() {
    return !fill();
}

LineReader::Line LineReader::readLine(qint64 keep) {
    Line line;
    bool gathered = false;
    pieces.clear();
    while (fill()) {
        const char* start = buffer.constData() + position;
        const qsizetype available = filled - position;
        const void* found = memchr(start, '\r', static_cast<size_t>(available));
        const qsizetype take = found ? static_cast<const char*>(found) - start : available;
        const qsizetype kept = static_cast<qsizetype>(
            std::clamp<qint64>(keep - line.length, 0, static_cast<qint64>(take)));
        if (!gathered && found) {
            line.text = QByteArrayView(start, kept);  // the whole line lies in this block
        } else {
            gathered = true;
            pieces.append(start, kept);
        }
        line.length += take;
        position += take;
        if (!found) continue;
        ++position;  // the carriage return
        skipLineFeed = true;
        break;
    }
    if (gathered) line.text = QByteArrayView(pieces);
    return line;
}
