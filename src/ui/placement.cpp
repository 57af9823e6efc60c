#include "placement.h"

#include <QWidget>

bool placeWidget(QWidget* widget, Placement& current, const Placement& next) {
    if (next.width < 0 || next.height < 0) return false;
    current = next;
    widget->setGeometry(next.rounded());
    return true;
}
