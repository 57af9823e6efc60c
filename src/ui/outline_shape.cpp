#include "outline_shape.h"

#include <QPainter>

OutlineShape::OutlineShape(QWidget* parent, QColor colour, const QString& name)
    : QWidget(parent), colour(colour) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void OutlineShape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(colour);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
