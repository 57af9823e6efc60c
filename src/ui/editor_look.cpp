#include "editor_look.h"

#include <QFontMetrics>
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

void shrinkToFit(QWidget* widget, const QString& text, int width) {
    QFont font = widget->font();
    while (QFontMetrics(font).horizontalAdvance(text) > width && font.pointSizeF() > 4)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    widget->setFont(font);
}
