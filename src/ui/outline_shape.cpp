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
    const int w = width(), h = height();
    for (const QRect& edge :
         {QRect(0, 0, w, 1), QRect(0, h - 1, w, 1), QRect(0, 0, 1, h), QRect(w - 1, 0, 1, h)})
        painter.fillRect(edge, colour);
}
