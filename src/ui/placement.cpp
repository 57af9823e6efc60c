#include "placement.h"

#include <QWidget>

#include <algorithm>

bool placeWidget(QWidget* widget, Placement& current, const Placement& next) {
    if (next.width < 0 || next.height < 0) return false;
    current = next;
    widget->setGeometry(next.rounded());
    return true;
}

float scrolledWithin(float position, float step, float lowest, float highest) {
    if (lowest > highest) return position;
    if (step < 0) return std::max(position + step, std::min(position, lowest));
    if (step > 0) return std::min(position + step, std::max(position, highest));
    return position;
}
