#include "lazy_icon_engine.h"

const QIcon& LazyIconEngine::loaded() {
    if (!tried) icon = QIcon(fileName);
    tried = true;
    return icon;
}

void LazyIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                           QIcon::State state) {
    loaded().paint(painter, rect, Qt::AlignCenter, mode, state);
}

QPixmap LazyIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    return loaded().pixmap(size, mode, state);
}

QPixmap LazyIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                                     qreal scale) {
    return loaded().pixmap(size, scale, mode, state);
}

QSize LazyIconEngine::actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    return loaded().actualSize(size, mode, state);
}

QList<QSize> LazyIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state) {
    return loaded().availableSizes(mode, state);
}
