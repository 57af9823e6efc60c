#include "minimap_canvas.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <numeric>

namespace {
// A dot is the 6-pixel square centred on (6x, 6y): pixels 6x - 3 up to 6x + 2.
constexpr int DotReach = MinimapCellSize / 2;

QRect dotRect(int x, int y) {
    return {x * MinimapCellSize - DotReach, y * MinimapCellSize - DotReach, MinimapCellSize,
            MinimapCellSize};
}
// The cell whose dot covers surface pixel p.
int dotIndex(int p) {
    return (p + DotReach) / MinimapCellSize;
}
// Pixels first..end - 1 of a surface row, from the dot colours of its level row.
void fillDotRow(QRgb* line, const QRgb* dot, int first, int end) {
    int x = dotIndex(first);
    QRgb* out = std::fill_n(line, std::min(end, x * MinimapCellSize + DotReach) - first, dot[x]);
    QRgb* const last = line + (end - first);
    for (++x; last - out >= MinimapCellSize; ++x) out = std::fill_n(out, MinimapCellSize, dot[x]);
    if (out < last) std::fill(out, last, dot[x]);
}

qint64 floorDivide(qint64 value, qint64 divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// The cells under one shown pixel along an axis, and how much of the pixel each covers: full
// pixels times `shown`, so that every length is a whole number.
struct Span {
    int firstCell = 0;
    std::size_t firstWeight = 0;
    int count = 0;
};

void addSpans(int first, int last, int cells, MinimapScale scale, std::vector<Span>& spans,
              std::vector<qint64>& weights) {
    const qint64 dot = qint64{MinimapCellSize} * scale.shown;
    const qint64 reach = qint64{DotReach} * scale.shown;
    const qint64 surfaceEnd = qint64{cells} * dot;
    for (int pixel = first; pixel <= last; ++pixel) {
        const qint64 low = qint64{pixel} * scale.full;
        const qint64 high = std::min(low + scale.full, surfaceEnd);
        Span span{static_cast<int>((low + reach) / dot), weights.size(), 0};
        for (qint64 centre = span.firstCell * dot; centre - reach < high; centre += dot) {
            weights.push_back(std::min(high, centre + reach) - std::max(low, centre - reach));
            ++span.count;
        }
        spans.push_back(span);
    }
}

// The colour of one shown pixel from the dots under it, each by the area it covers there.
class PixelBlend {
  public:
    void add(QRgb dot, qint64 weight) {
        area += weight;
        if (dot == MinimapBackground) return;
        covered += weight;
        red += weight * qRed(dot);
        green += weight * qGreen(dot);
        blue += weight * qBlue(dot);
        figure = figure || dot == FigureDotColour;
        item = item || dot == ItemDotColour;
    }
    QRgb colour() const {
        if (figure) return FigureDotColour;
        if (item) return ItemDotColour;
        if (covered == 0) return MinimapBackground;
        // The mean of what is not floor, laid over the floor by its share, but at least half
        // strong, so that one wall among many floor cells still darkens its pixel.
        const double share =
            std::max(static_cast<double>(covered) / static_cast<double>(area), 0.5);
        auto channel = [&](qint64 sum, int floor) {
            const double mean = static_cast<double>(sum) / static_cast<double>(covered);
            return static_cast<int>(std::lround(floor + (mean - floor) * share));
        };
        return qRgb(channel(red, qRed(MinimapBackground)),
                    channel(green, qGreen(MinimapBackground)),
                    channel(blue, qBlue(MinimapBackground)));
    }

  private:
    qint64 area = 0;
    qint64 covered = 0;
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    bool figure = false;
    bool item = false;
};
}  // namespace

float MinimapScale::toFull(float shownPixels) const {
    return shownPixels * static_cast<float>(full) / static_cast<float>(shown);
}

float MinimapScale::toShown(float fullPixels) const {
    return fullPixels * static_cast<float>(shown) / static_cast<float>(full);
}

QRect MinimapScale::shownRect(const QRect& fullPixels) const {
    if (isFull() || fullPixels.isEmpty()) return fullPixels;
    const auto from = [&](qint64 first) {
        return static_cast<int>(floorDivide(first * shown, full));
    };
    const auto to = [&](qint64 end) {
        return static_cast<int>(floorDivide(end * shown - 1, full));
    };
    return {QPoint(from(fullPixels.left()), from(fullPixels.top())),
            QPoint(to(fullPixels.right() + qint64{1}), to(fullPixels.bottom() + qint64{1}))};
}

MinimapScale minimapScaleFor(int columns, int rows) {
    const int side = std::max(columns, rows);
    if (side <= LargestFullSizeMinimapSide) return {};
    const int full = side * MinimapCellSize;
    const int common = std::gcd(MinimapBoxSide, full);
    return {MinimapBoxSide / common, full / common};
}

void MinimapCanvas::resize(int columns, int rows) {
    if (std::max(columns, 0) == width && std::max(rows, 0) == height && !dots.empty()) return;
    width = std::max(columns, 0);
    height = std::max(rows, 0);
    dots.assign(static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1),
                MinimapBackground);
    if (changed) changed(QRect(QPoint(0, 0), pixelSize()));
}

void MinimapCanvas::clear() {
    std::fill(dots.begin(), dots.end(), MinimapBackground);
    if (changed) changed(QRect(QPoint(0, 0), pixelSize()));
}

void MinimapCanvas::drawDot(int x, int y) {
    if (x < 0 || x > width || y < 0 || y > height) return;
    dots[static_cast<std::size_t>(y) * (width + 1) + x] = drawing;
    if (changed) changed(dotRect(x, y));
}

void MinimapCanvas::drawDotRow(int y, const QRgb* colours, int count) {
    if (y < 0 || y > height) return;
    const int drawn = std::clamp(count, 0, width + 1);
    std::copy_n(colours, drawn, dots.begin() + static_cast<std::ptrdiff_t>(y) * (width + 1));
    if (changed && drawn > 0) changed(dotRect(0, y).united(dotRect(drawn - 1, y)));
}

QRgb MinimapCanvas::dotAt(int x, int y) const {
    if (x < 0 || x > width || y < 0 || y > height) return MinimapBackground;
    return dots[static_cast<std::size_t>(y) * (width + 1) + x];
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
            const QRgb* dot = dots.data() + static_cast<std::size_t>(y) * (width + 1);
            fillDotRow(line, dot, area.left(), area.right() + 1);
        }
        painter.drawImage(QPoint(area.left(), top), band, QRect(0, 0, area.width(), rows));
    }
}

QSize MinimapCanvas::shownSize(MinimapScale scale) const {
    auto shown = [&](int cells) {
        const qint64 full = qint64{cells} * MinimapCellSize * scale.shown;
        return static_cast<int>((full + scale.full - 1) / scale.full);
    };
    return {shown(width), shown(height)};
}

void MinimapCanvas::paintScaled(QPainter& painter, const QRect& exposed, MinimapScale scale) const {
    const QRect area = exposed.intersected(QRect(QPoint(0, 0), shownSize(scale)));
    if (area.isEmpty()) return;
    std::vector<Span> columnSpans;
    std::vector<Span> rowSpans;
    std::vector<qint64> columnWeights;
    std::vector<qint64> rowWeights;
    addSpans(area.left(), area.right(), width, scale, columnSpans, columnWeights);
    addSpans(area.top(), area.bottom(), height, scale, rowSpans, rowWeights);
    QImage image(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < area.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const Span& row = rowSpans[static_cast<std::size_t>(y)];
        for (int x = 0; x < area.width(); ++x) {
            const Span& column = columnSpans[static_cast<std::size_t>(x)];
            PixelBlend blend;
            for (int k = 0; k < row.count; ++k) {
                const QRgb* dot = dots.data() +
                                  static_cast<std::size_t>(row.firstCell + k) * (width + 1) +
                                  column.firstCell;
                const qint64 rowWeight = rowWeights[row.firstWeight + k];
                for (int j = 0; j < column.count; ++j)
                    blend.add(dot[j], rowWeight * columnWeights[column.firstWeight + j]);
            }
            line[x] = blend.colour();
        }
    }
    painter.drawImage(area.topLeft(), image);
}
