#pragma once

#include <QRect>

class QWidget;

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

// Places a widget by floats and remembers the place in `current`; a negative size is
// rejected and changes nothing. Returns whether it moved.
bool placeWidget(QWidget* widget, Placement& current, const Placement& next);

// A position moved by `step` without passing the ends `lowest` and `highest`: one already
// beyond an end is not moved further out, nor pulled back more than `step`. When the ends
// leave no room (lowest above highest), nothing moves.
float scrolledWithin(float position, float step, float lowest, float highest);
