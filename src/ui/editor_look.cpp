#include "editor_look.h"

#include <QWidget>

QFont boldSansSerif(qreal points) {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(points);
    font.setBold(true);
    return font;
}

void setColour(QWidget* widget, QPalette::ColorRole role, QColor colour) {
    QPalette colours = widget->palette();
    colours.setColor(role, colour);
    widget->setPalette(colours);
}
