// The minimap of a large level, shown smaller than its 6 pixels a cell.

#include "minimap_canvas.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <numeric>

namespace {

qint64 floorDivide(qint64 value, qint64 divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Along one axis of a shown minimap, where a cell's dot covers part of a shown pixel, and by
// how much: full-size pixels times `shown`, so that every length is a whole number.
struct Overlap {
    int cell;
    int pixel;
    qint64 length;
};

// The overlaps of shown pixels first..last, in order of pixels and so also of cells.
std::vector<Overlap> overlapsOf(int first, int last, int cells, AxisScale scale) {
    const qint64 dot = qint64{MinimapCellSize} * scale.shown;
    const qint64 reach = qint64(MinimapDotReach) * scale.shown;
    const qint64 surfaceEnd = qint64{cells} * dot;
    std::vector<Overlap> overlaps;
    for (int pixel = first; pixel <= last; ++pixel) {
        const qint64 low = qint64{pixel} * scale.full;
        const qint64 high = std::min(low + scale.full, surfaceEnd);
        for (qint64 cell = (low + reach) / dot; cell * dot - reach < high; ++cell) {
            const qint64 length =
                std::min(high, cell * dot + reach) - std::max(low, cell * dot - reach);
            overlaps.push_back({static_cast<int>(cell), pixel, length});
        }
    }
    return overlaps;
}

// Where each cell's overlaps begin, for the cells first..last of `overlaps` and one past.
std::vector<std::size_t> overlapsByCell(const std::vector<Overlap>& overlaps) {
    const int first = overlaps.front().cell;
    std::vector<std::size_t> begins(static_cast<std::size_t>(overlaps.back().cell - first + 2));
    for (std::size_t i = overlaps.size(); i-- > 0;)
        begins[static_cast<std::size_t>(overlaps[i].cell - first)] = i;
    begins.back() = overlaps.size();
    return begins;
}

// The dots under one shown pixel that are not floor, each weighted by the area it covers.
// The weights are whole numbers, and so are the sums as long as they stay below 2^24.
// Weight, red, green and blue side by side, so that one dot is added in one vector step.
struct PixelSum {
    std::array<float, 4> weighted{};
    bool figure = false;
    bool item = false;
    float covered() const { return weighted[0]; }
};

// The colour of a shown pixel, from its sums and one over its area. A figure under it makes
// it the figure's red, else an item the items' blue; otherwise it is the mean of what is not
// floor, laid over the floor by its share but at least half strong, so that one wall among
// many floor cells still shows.
QRgb colourOf(const PixelSum& sum, float perArea) {
    if (sum.figure) return FigureDotColour;
    if (sum.item) return ItemDotColour;
    if (sum.covered() == 0) return MinimapBackground;
    const float share = sum.covered() * perArea;
    const float perWeight = share >= 0.5f ? perArea : 0.5f / sum.covered();
    const float floorShare = 1 - std::max(share, 0.5f);
    auto channel = [&](float weighted, int floor) {
        return static_cast<int>(static_cast<float>(floor) * floorShare + weighted * perWeight +
                                0.5f);
    };
    return qRgb(channel(sum.weighted[1], qRed(MinimapBackground)),
                channel(sum.weighted[2], qGreen(MinimapBackground)),
                channel(sum.weighted[3], qBlue(MinimapBackground)));
}
}  // namespace

float AxisScale::toFull(float shownPixels) const {
    return shownPixels * static_cast<float>(full) / static_cast<float>(shown);
}

float AxisScale::toShown(float fullPixels) const {
    return fullPixels * static_cast<float>(shown) / static_cast<float>(full);
}

QPointF MinimapScale::toFull(QPointF shown) const {
    return {across.toFull(static_cast<float>(shown.x())),
            down.toFull(static_cast<float>(shown.y()))};
}

QRect MinimapScale::shownRect(const QRect& fullPixels) const {
    if (isFull() || fullPixels.isEmpty()) return fullPixels;
    const auto from = [](qint64 first, AxisScale axis) {
        return static_cast<int>(floorDivide(first * axis.shown, axis.full));
    };
    const auto to = [](qint64 end, AxisScale axis) {
        return static_cast<int>(floorDivide(end * axis.shown - 1, axis.full));
    };
    return {QPoint(from(fullPixels.left(), across), from(fullPixels.top(), down)),
            QPoint(to(fullPixels.right() + qint64{1}, across),
                   to(fullPixels.bottom() + qint64{1}, down))};
}

namespace {
AxisScale reduced(int shown, int full) {
    const int common = std::gcd(shown, full);
    return {shown / common, full / common};
}

// A short side shown thinner than ThinnestMinimapSide is stretched to it, or shown whole.
AxisScale atLeastThinnest(AxisScale scale, int cells) {
    const int full = cells * MinimapCellSize;
    if (qint64{full} * scale.shown >= qint64{ThinnestMinimapSide} * scale.full) return scale;
    return full <= ThinnestMinimapSide ? AxisScale{} : reduced(ThinnestMinimapSide, full);
}
}  // namespace

MinimapScale minimapScaleFor(int columns, int rows) {
    const int side = std::max(columns, rows);
    if (side <= LargestFullSizeMinimapSide) return {};
    const AxisScale box = reduced(MinimapBoxSide, side * MinimapCellSize);
    return {atLeastThinnest(box, columns), atLeastThinnest(box, rows)};
}

QSize MinimapCanvas::shownSize(MinimapScale scale) const {
    auto shown = [&](int cells, AxisScale axis) {
        const qint64 full = qint64{cells} * MinimapCellSize * axis.shown;
        return static_cast<int>((full + axis.full - 1) / axis.full);
    };
    return {shown(width, scale.across), shown(height, scale.down)};
}

void MinimapCanvas::paintScaled(QPainter& painter, const QRect& exposed, MinimapScale scale) const {
    const QRect area = exposed.intersected(QRect(QPoint(0, 0), shownSize(scale)));
    if (area.isEmpty()) return;
    const std::vector<Overlap> across = overlapsOf(area.left(), area.right(), width, scale.across);
    const std::vector<std::size_t> acrossByCell = overlapsByCell(across);
    const int firstColumn = across.front().cell;
    const int endColumn = firstColumn + static_cast<int>(acrossByCell.size()) - 1;
    const auto shownWidth = static_cast<std::size_t>(area.width());
    std::vector<float> acrossLengths(across.size());
    for (std::size_t a = 0; a < across.size(); ++a)
        acrossLengths[a] = static_cast<float>(across[a].length);

    // One over each pixel's width, for its share of what is not floor.
    std::vector<qint64> pixelWidths(shownWidth);
    for (const Overlap& overlap : across)
        pixelWidths[static_cast<std::size_t>(overlap.pixel - area.left())] += overlap.length;
    std::vector<float> perWidth(shownWidth);
    for (std::size_t x = 0; x < shownWidth; ++x)
        perWidth[x] = 1.0f / static_cast<float>(pixelWidths[x]);

    // A row of pixels at a time, so that its sums stay in the cache: the dots that are not
    // floor in the cell rows under it, read only in blocks marked as holding any, are spread
    // over the pixels they cover.
    QImage image(area.size(), QImage::Format_RGB32);
    std::vector<PixelSum> sums(shownWidth);
    for (int y = 0; y < area.height(); ++y) {
        std::fill(sums.begin(), sums.end(), PixelSum{});
        qint64 pixelHeight = 0;
        for (const Overlap& down : overlapsOf(area.top() + y, area.top() + y, height, scale.down)) {
            pixelHeight += down.length;
            const auto downLength = static_cast<float>(down.length);
            const quint8* line =
                dots.data() + static_cast<std::size_t>(down.cell) * (width + 1) + firstColumn;
            const quint8* marks =
                notAllFloor.data() + static_cast<std::size_t>(down.cell) * blocksPerRow();
            for (int block = firstColumn / BlockDots; block * BlockDots < endColumn; ++block) {
                if (marks[block] == 0) continue;
                const int from = std::max(firstColumn, block * BlockDots) - firstColumn;
                const int to = std::min(endColumn, (block + 1) * BlockDots) - firstColumn;
                for (int x = from; x < to; ++x) {
                    if (line[x] == BackgroundIndex) continue;  // floor
                    const QRgb dot = colours[line[x]];
                    const auto column = static_cast<std::size_t>(x);
                    const std::array<float, 4> values{1, static_cast<float>(qRed(dot)),
                                                      static_cast<float>(qGreen(dot)),
                                                      static_cast<float>(qBlue(dot))};
                    const bool figure = dot == FigureDotColour;
                    const bool item = dot == ItemDotColour;
                    for (std::size_t a = acrossByCell[column]; a < acrossByCell[column + 1]; ++a) {
                        PixelSum& sum =
                            sums[static_cast<std::size_t>(across[a].pixel - area.left())];
                        const float weight = downLength * acrossLengths[a];
                        for (std::size_t i = 0; i < values.size(); ++i)
                            sum.weighted[i] += weight * values[i];
                        sum.figure = sum.figure || figure;
                        sum.item = sum.item || item;
                    }
                }
            }
        }
        auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
        const float perHeight = 1.0f / static_cast<float>(pixelHeight);
        for (std::size_t x = 0; x < shownWidth; ++x)
            pixels[x] = colourOf(sums[x], perWidth[x] * perHeight);
    }
    markFigures(image, area, scale);
    painter.drawImage(area.topLeft(), image);
}

// Where a cell is shown under 2 pixels, a figure would be a single pixel, easily missed: it
// is drawn as a 3 x 3 square of its red around the pixel of its cell's centre. The figures
// whose squares reach into `area` are found among the marked blocks of the cells under it
// and one pixel beyond.
void MinimapCanvas::markFigures(QImage& image, const QRect& area, MinimapScale scale) const {
    const auto small = [](AxisScale axis) {
        return qint64{MinimapCellSize} * axis.shown < 2 * qint64{axis.full};
    };
    if (!small(scale.across) && !small(scale.down)) return;
    const auto cellAt = [](int pixel, AxisScale axis, int cells) {
        const qint64 full = floorDivide(qint64{pixel} * axis.full, axis.shown);
        return static_cast<int>(std::clamp<qint64>(full / MinimapCellSize, 0, cells));
    };
    const auto centre = [](int cell, AxisScale axis) {
        return static_cast<int>(qint64{cell} * MinimapCellSize * axis.shown / axis.full);
    };
    const int firstColumn = cellAt(area.left() - 2, scale.across, width);
    const int lastColumn = std::min(width, cellAt(area.right() + 2, scale.across, width) + 1);
    const int firstRow = cellAt(area.top() - 2, scale.down, height);
    const int lastRow = std::min(height, cellAt(area.bottom() + 2, scale.down, height) + 1);
    for (int y = firstRow; y <= lastRow; ++y) {
        const quint8* line = dots.data() + static_cast<std::size_t>(y) * (width + 1);
        const quint8* marks = notAllFloor.data() + static_cast<std::size_t>(y) * blocksPerRow();
        for (int x = firstColumn; x <= lastColumn; ++x) {
            if (marks[x / BlockDots] == 0) {
                x = (x / BlockDots + 1) * BlockDots - 1;
                continue;
            }
            if (colours[line[x]] != FigureDotColour) continue;
            const QRect square = QRect(centre(x, scale.across) - 1, centre(y, scale.down) - 1, 3, 3)
                                     .intersected(area)
                                     .translated(-area.topLeft());
            for (int py = square.top(); py <= square.bottom(); ++py) {
                auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(py));
                std::fill(pixels + square.left(), pixels + square.right() + 1, FigureDotColour);
            }
        }
    }
}
