#include "editor_look.h"

#include <QEvent>
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

namespace {
void shrinkToFit(QWidget* widget, const QString& text, int width) {
    QFont font = widget->font();
    while (QFontMetrics(font).horizontalAdvance(text) > width && font.pointSizeF() > 4)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    widget->setFont(font);
}

// Fits its widget's caption on the widget's first paint event, before the widget paints.
class FitWhenDrawn : public QObject {
  public:
    FitWhenDrawn(QWidget* widget, int margin) : QObject(widget), margin(margin) {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        auto* widget = static_cast<QWidget*>(watched);
        widget->removeEventFilter(this);
        shrinkToFit(widget, widget->property("text").toString(), widget->width() - margin);
        deleteLater();
        return false;
    }

  private:
    int margin;
};
}  // namespace

void shrinkToFitWhenDrawn(QWidget* widget, int margin) {
    new FitWhenDrawn(widget, margin);
}
