#pragma once

#include "placement.h"

#include <QWidget>

// A 1-pixel rectangle outline over a surface, with a second one of another colour just
// inside it if asked for; the mouse goes through it.
class OutlineShape : public QWidget {
    Q_OBJECT

  public:
    OutlineShape(QWidget* parent, QColor colour, const QString& name);
    const Placement& placement() const { return place; }
    void setPlacement(const Placement& next) { placeWidget(this, place, next); }
    // The placement moves to (left, top) at once; the widget follows with followPlacement().
    void movePlacement(float left, float top) {
        place.left = left;
        place.top = top;
    }
    void followPlacement() { setGeometry(place.rounded()); }
    // An invalid colour draws no inner outline.
    void setInnerColour(QColor inner);
    // Dashed: the outline alternates its colour with black every few pixels.
    void setDashed(bool dashed);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour;
    QColor innerColour;
    bool dashes = false;
    Placement place;
};
