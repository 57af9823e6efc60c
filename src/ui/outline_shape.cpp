#include "outline_shape.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

OutlineShape::OutlineShape(QWidget* parent, QColor colour, const QString& name)
    : QWidget(parent), colour(colour) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

// Four one-pixel strips rather than a drawn rectangle: at a fractional screen scale a line on
// the widget's edge straddles it, and half of it, or all, falls outside.
void OutlineShape::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const auto ring = [&](QRect r, QColor c) {
        for (const QRect& edge :
             {QRect(r.left(), r.top(), r.width(), 1), QRect(r.left(), r.bottom(), r.width(), 1),
              QRect(r.left(), r.top(), 1, r.height()), QRect(r.right(), r.top(), 1, r.height())})
            painter.fillRect(edge, c);
    };
    if (innerColour.isValid()) ring(rect().adjusted(1, 1, -1, -1), innerColour);
    ring(rect(), colour);
    if (!dashes) return;
    // Black gaps every other Dash pixels, so the outline shows on light and dark cells alike;
    // only those exposed are drawn, since a selection can be thousands of pixels long.
    constexpr int Dash = 4;
    const QRect r = rect();
    const QRect exposed = event->rect();
    const auto firstGap = [](int from, int start) {
        return start + Dash + std::max(0, (from - start - Dash) / (2 * Dash)) * 2 * Dash;
    };
    for (int x = firstGap(exposed.left(), r.left()); x <= exposed.right(); x += 2 * Dash) {
        painter.fillRect(QRect(x, r.top(), Dash, 1), Qt::black);
        painter.fillRect(QRect(x, r.bottom(), Dash, 1), Qt::black);
    }
    for (int y = firstGap(exposed.top(), r.top()); y <= exposed.bottom(); y += 2 * Dash) {
        painter.fillRect(QRect(r.left(), y, 1, Dash), Qt::black);
        painter.fillRect(QRect(r.right(), y, 1, Dash), Qt::black);
    }
}

void OutlineShape::setDashed(bool dashed) {
    dashes = dashed;
    update();
}

void OutlineShape::setInnerColour(QColor inner) {
    if (inner == innerColour) return;
    innerColour = inner;
    update();
}
