#include "outline_shape.h"

#include <QPainter>

OutlineShape::OutlineShape(QWidget* parent, QColor colour, const QString& name)
    : QWidget(parent), colour(colour) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

// Four one-pixel strips rather than a drawn rectangle: at a fractional screen scale a line on
// the widget's edge straddles it, and half of it, or all, falls outside.
void OutlineShape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto ring = [&](QRect r, QColor c) {
        for (const QRect& edge :
             {QRect(r.left(), r.top(), r.width(), 1), QRect(r.left(), r.bottom(), r.width(), 1),
              QRect(r.left(), r.top(), 1, r.height()), QRect(r.right(), r.top(), 1, r.height())})
            painter.fillRect(edge, c);
    };
    if (innerColour.isValid()) ring(rect().adjusted(1, 1, -1, -1), innerColour);
    ring(rect(), colour);
}

void OutlineShape::setInnerColour(QColor inner) {
    if (inner == innerColour) return;
    innerColour = inner;
    update();
}
