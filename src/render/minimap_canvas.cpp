#include "minimap_canvas.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// The cell whose dot covers surface pixel p.
int dotIndex(int p) {
    return (p + MinimapDotReach) / MinimapCellSize;
}
// Pixels first..end - 1 of a surface row, from the dots of its level row.
void fillDotRow(QRgb* line, const quint8* dot, const QRgb* colours, int first, int end) {
    int x = dotIndex(first);
    QRgb* out = std::fill_n(line, std::min(end, x * MinimapCellSize + MinimapDotReach) - first,
                            colours[dot[x]]);
    QRgb* const last = line + (end - first);
    for (++x; last - out >= MinimapCellSize; ++x)
        out = std::fill_n(out, MinimapCellSize, colours[dot[x]]);
    if (out < last) std::fill(out, last, colours[dot[x]]);
}

// Whether `Count` dots are all floor (index 0), compared eight at a time: a whole-level
// redraw asks it of every block.
template <int Count>
bool holdsOnlyFloor(const quint8* dots) {
    static_assert(Count % 8 == 0);
    quint64 others = 0;
    for (int i = 0; i < Count; i += 8) {
        quint64 eight = 0;
        std::memcpy(&eight, dots + i, sizeof eight);
        others |= eight;
    }
    return others == 0;
}
}  // namespace

void MinimapCanvas::resize(int columns, int rows, NewDots newDots) {
    if (std::max(columns, 0) == width && std::max(rows, 0) == height && !dots.empty()) return;
    width = std::max(columns, 0);
    height = std::max(rows, 0);
    const std::size_t count =
        static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1);
    dots.clear();
    if (newDots == NewDots::Background)
        dots.assign(count, BackgroundIndex);
    else
        dots.resize(count);  // the grid allocator gives them no value
    notAllFloor.assign(static_cast<std::size_t>(blocksPerRow()) * (height + 1), 0);
    if (changed) changed(QRect(0, 0, width + 1, height + 1));
}

void MinimapCanvas::swapDots(MinimapCanvas& other) noexcept {
    std::swap(width, other.width);
    std::swap(height, other.height);
    std::swap(drawing, other.drawing);
    colours.swap(other.colours);
    dots.swap(other.dots);
    notAllFloor.swap(other.notAllFloor);
}

void MinimapCanvas::drawDot(int x, int y) {
    setDot(x, y, drawing);
}

void MinimapCanvas::setDot(int x, int y, QRgb colour) {
    if (x < 0 || x > width || y < 0 || y > height) return;
    const quint8 index = colourIndex(colour);
    dots[static_cast<std::size_t>(y) * (width + 1) + x] = index;
    if (index != BackgroundIndex)
        notAllFloor[static_cast<std::size_t>(y) * blocksPerRow() + x / BlockDots] = 1;
    if (changed) changed(QRect(x, y, 1, 1));
}

void MinimapCanvas::drawDotRow(int y, const QRgb* colours, int count) {
    if (y < 0 || y > height) return;
    const int drawn = std::clamp(count, 0, width + 1);
    quint8* row = dots.data() + static_cast<std::size_t>(y) * (width + 1);
    // Rows are mostly runs of one colour: the last one found is tried first.
    QRgb lastColour = MinimapBackground;
    quint8 lastIndex = BackgroundIndex;
    for (int x = 0; x < drawn; ++x) {
        if (colours[x] != lastColour) {
            lastColour = colours[x];
            lastIndex = colourIndex(lastColour);
        }
        row[x] = lastIndex;
    }
    rowDrawn(y, drawn);
}

void MinimapCanvas::drawIndexedDotRow(int y, const quint8* indices, int count) {
    if (y < 0 || y > height) return;
    const int drawn = std::clamp(count, 0, width + 1);
    std::copy_n(indices, drawn, dots.data() + static_cast<std::size_t>(y) * (width + 1));
    rowDrawn(y, drawn);
}

void MinimapCanvas::rowDrawn(int y, int drawn) {
    markBlocks(y, drawn);
    if (changed && drawn > 0) changed(QRect(0, y, drawn, 1));
}

// Marks the blocks of dots 0..end - 1 of row y by what they hold now; a last block that
// reaches past them, short of the margin column, keeps its mark if it had one.
void MinimapCanvas::markBlocks(int y, int end) {
    const quint8* row = dots.data() + static_cast<std::size_t>(y) * (width + 1);
    quint8* marks = notAllFloor.data() + static_cast<std::size_t>(y) * blocksPerRow();
    int start = 0;
    for (; start + BlockDots <= end; start += BlockDots)
        marks[start / BlockDots] = holdsOnlyFloor<BlockDots>(row + start) ? 0 : 1;
    if (start >= end) return;
    quint8 other = 0;
    for (int x = start; x < end; ++x) other |= row[x];
    quint8& mark = marks[start / BlockDots];
    mark = (end <= width && mark) || other != 0 ? 1 : 0;
}

quint8 MinimapCanvas::colourIndex(QRgb colour) {
    const auto found = std::find(colours.begin(), colours.end(), colour);
    if (found != colours.end()) return static_cast<quint8>(found - colours.begin());
    if (colours.size() > 255) qFatal("The minimap holds at most 256 dot colours");
    colours.push_back(colour);
    return static_cast<quint8>(colours.size() - 1);
}

QRgb MinimapCanvas::dotAt(int x, int y) const {
    if (x < 0 || x > width || y < 0 || y > height) return MinimapBackground;
    return colours[dots[static_cast<std::size_t>(y) * (width + 1) + x]];
}

void MinimapCanvas::dotColoursOfRow(int y, QRgb* out) const {
    const quint8* row = dots.data() + static_cast<std::size_t>(y) * (width + 1);
    for (int x = 0; x <= width; ++x) out[x] = colours[row[x]];
}

void MinimapCanvas::paint(QPainter& painter, const QRect& exposed) const {
    const QRect area = exposed.intersected(QRect(QPoint(0, 0), pixelSize()));
    if (area.isEmpty()) return;
    // The pixels are laid out a band of rows at a time in one small image, drawn with one
    // unscaled copy per band: no painter call per dot, and memory bounded by the band.
    constexpr int BandPixels = 1 << 16;
    const int bandRows = std::min(area.height(), std::max(64, BandPixels / area.width()));
    QImage band(area.width(), bandRows, QImage::Format_RGB32);
    auto* const pixels = reinterpret_cast<QRgb*>(band.bits());
    const qsizetype stride = band.bytesPerLine() / qsizetype(sizeof(QRgb));
    for (int top = area.top(); top <= area.bottom(); top += band.height()) {
        const int rows = std::min(band.height(), area.bottom() + 1 - top);
        for (int row = 0; row < rows; ++row) {
            QRgb* line = pixels + row * stride;
            const int y = dotIndex(top + row);
            if (row > 0 && y == dotIndex(top + row - 1)) {
                std::copy_n(line - stride, area.width(), line);
                continue;
            }
            const quint8* dot = dots.data() + static_cast<std::size_t>(y) * (width + 1);
            fillDotRow(line, dot, colours.data(), area.left(), area.right() + 1);
        }
        painter.drawImage(QPoint(area.left(), top), band, QRect(0, 0, area.width(), rows));
    }
}
