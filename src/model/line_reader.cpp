#include "line_reader.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace {
constexpr qint64 BlockSize = 1 << 16;
}

bool LineReader::fill() {
    if (position < buffer.size()) return true;
    buffer = device.read(BlockSize);
    position = 0;
    return !buffer.isEmpty();
}

bool LineReader::atEnd() {
    return !fill();
}

LineReader::Line LineReader::readLine(qint64 keep) {
    Line line;
    while (fill()) {
        const char* start = buffer.constData() + position;
        const qsizetype available = buffer.size() - position;
        const void* found = memchr(start, '\r', static_cast<size_t>(available));
        const qsizetype take = found ? static_cast<const char*>(found) - start : available;
        const qint64 room = keep - line.text.size();
        if (room > 0) line.text.append(start, static_cast<qsizetype>(std::min<qint64>(room, take)));
        line.length += take;
        position += take;
        if (!found) continue;
        ++position;  // the carriage return
        if (fill() && buffer.at(position) == '\n') ++position;
        break;
    }
    return line;
}
