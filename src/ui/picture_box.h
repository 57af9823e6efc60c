#pragma once

#include "placement.h"

#include <QWidget>

#include <functional>

// Mouse buttons as a mask: 1 left, 2 right, 4 middle, compared as a whole value.
inline constexpr int NoButton = 0;
inline constexpr int LeftButton = 1;
inline constexpr int RightButton = 2;
inline constexpr int MiddleButton = 4;

// A picture surface: a background colour, a float placement, and its mouse presses and moves
// handed on as (button mask, shift mask, x, y) in its own pixels. After a press the moves keep
// coming while a button is held, even outside it.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    using MouseHandler = std::function<void(int button, int shift, float x, float y)>;

    PictureBox(QWidget* parent, QColor background, const char* name);

    const Placement& placement() const { return place; }
    // Moves and sizes the box; a negative size is rejected and changes nothing.
    bool move(const Placement& next);

    MouseHandler onMouseDown;
    MouseHandler onMouseMove;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    Placement place;
};

// Places any widget by floats; a negative size is rejected. Returns whether it moved.
bool placeWidget(QWidget* widget, Placement& current, const Placement& next);
