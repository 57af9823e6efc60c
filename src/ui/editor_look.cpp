#include "editor_look.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QWidget>

QFont sansSerif(qreal points) {
    static const QString family =
        QFontDatabase::families().contains(QStringLiteral("MS Sans Serif"), Qt::CaseInsensitive)
            ? QStringLiteral("MS Sans Serif")
            : QStringLiteral("Liberation Sans");
    QFont font(family);
    font.setPointSizeF(points);
    return font;
}

QFont boldSansSerif(qreal points) {
    QFont font = sansSerif(points);
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
