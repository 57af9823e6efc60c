#include "line_reader.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace {
constexpr qint64 BlockSize = 1 << 18;
}

bool LineReader::fill() {
    for (;;) {
        if (position >= buffer.size()) {
            buffer = device.read(std::min(BlockSize, unread));
            unread -= buffer.size();
            position = 0;
            if (buffer.isEmpty()) return false;
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
        const qsizetype available = buffer.size() - position;
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
