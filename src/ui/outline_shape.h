#pragma once

#include "placement.h"

#include <QWidget>

// A 1-pixel rectangle outline over a surface; the mouse goes through it.
class OutlineShape : public QWidget {
    Q_OBJECT

  public:
    OutlineShape(QWidget* parent, QColor colour, const QString& name);
    const Placement& placement() const { return place; }
    void setPlacement(const Placement& next) { placeWidget(this, place, next); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour;
    Placement place;
};
