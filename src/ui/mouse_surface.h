#pragma once

#include "placement.h"

#include <QWidget>

// A surface with a background colour and a float placement that tells its mouse presses and
// releases (the button pressed or let go) and moves (every button held) in its own pixels,
// counted from its placement. After a press the moves keep coming while a button is held,
// even outside it. A click gives it the keyboard focus, so that the window's keys act again
// after typing in a field.
class MouseSurface : public QWidget {
    Q_OBJECT

  public:
    MouseSurface(QWidget* parent, QColor background, const QString& name);

    const Placement& placement() const { return place; }
    // Moves and sizes the surface; a negative size is rejected and changes nothing.
    bool setPlacement(const Placement& next) { return placeWidget(this, place, next); }
    // A point of the widget as a point of the surface at its placement: the same point,
    // unless the widget has not yet been moved to a new placement.
    QPointF placed(QPointF widgetPoint) const {
        return widgetPoint + QPointF(pos() - place.rounded().topLeft());
    }
    // The placement moves to (left, top) at once; the widget follows with followPlacement().
    void movePlacement(float left, float top) {
        place.left = left;
        place.top = top;
    }
    void followPlacement() { setGeometry(place.rounded()); }

  signals:
    void pressed(Qt::MouseButtons button, QPointF position, Qt::KeyboardModifiers modifiers);
    void moved(Qt::MouseButtons buttons, QPointF position);
    void released(Qt::MouseButtons button, QPointF position);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Placement place;
};
