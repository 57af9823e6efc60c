#include "block_preview.h"

#include "block_picture.h"
#include "sprite_sheet.h"

#include <QPaintEvent>
#include <QPainter>

namespace {
// The largest block kept composed: 16 megabytes of pixels.
constexpr qint64 ComposedPixels = qint64(4) << 20;
constexpr qreal Transparency = 0.5;
}  // namespace

BlockPreview::BlockPreview(QWidget* map, const SpriteSheet& sheet) : QWidget(map), sheet(sheet) {
    setObjectName(QStringLiteral("blockPreview"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void BlockPreview::setBlock(LevelBlock shown) {
    carried = std::move(shown);
    cells = blockCanvas(carried);
    composed = QImage();
    update();
}

void BlockPreview::showAt(QPoint cell, int step) {
    if (step != zoomStep) composed = QImage();
    zoomStep = step;
    tile = tileSizeAt(step);
    setGeometry(cell.x() * tile, cell.y() * tile, carried.width * tile, carried.height * tile);
}

// The cells of the block within `area` (pixels of the block), as the map draws them.
void BlockPreview::paintCells(QPainter& painter, const QRect& area) const {
    if (zoomStep == 0)
        cells.paint(painter, area, sheet);
    else
        cells.paintZoomed(painter, area, zoomedTiles.at(zoomStep), tile, scratch);
}

void BlockPreview::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    painter.setOpacity(Transparency);
    if (qint64(width()) * height() <= ComposedPixels) {
        if (composed.size() != size()) {
            composed = QImage(size(), QImage::Format_ARGB32_Premultiplied);
            composed.fill(Qt::transparent);
            QPainter into(&composed);
            paintCells(into, composed.rect());
        }
        painter.drawImage(exposed, composed, exposed);
    } else {
        painter.setClipRect(exposed);
        paintCells(painter, exposed);
    }
    painter.setOpacity(1);
    const QRect r = rect();
    const QColor colour(255, 255, 0);
    for (const QRect& edge :
         {QRect(r.left(), r.top(), r.width(), 1), QRect(r.left(), r.bottom(), r.width(), 1),
          QRect(r.left(), r.top(), 1, r.height()), QRect(r.right(), r.top(), 1, r.height())})
        painter.fillRect(edge, colour);
}
