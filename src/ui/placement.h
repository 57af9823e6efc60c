#pragma once

#include <QRect>

// A control's place in its container as the editor computes it: floats, rounded only when
// the widget is placed.
struct Placement {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    QRect rounded() const { return {qRound(left), qRound(top), qRound(width), qRound(height)}; }
    bool operator==(const Placement&) const = default;
};
