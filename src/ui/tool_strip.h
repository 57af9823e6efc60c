#pragma once

#include "mouse_surface.h"

class QButtonGroup;

// The palette: a strip of 26 picture buttons, one per tool, in a viewport of the left
// column. The strip is dragged up and down by its blue background.
class ToolStrip : public MouseSurface {
    Q_OBJECT

  public:
    explicit ToolStrip(QWidget* parent);

    // Moves and sizes the viewport (not when its size would be negative); the strip takes
    // the viewport's width either way.
    bool moveViewport(const Placement& next);
    const Placement& stripPlacement() const;
    // Presses the tool's button as a click would; nothing happens when it is pressed already.
    void pressTool(int code);

  signals:
    void toolSelected(int code);

  protected:
    // The wheel moves the strip an entry a notch, as far as its first and its last entry.
    void wheelEvent(QWheelEvent* event) override;

  private:
    void createButtons();
    void toolStripPressed(QPointF position);
    void toolStripDragged(Qt::MouseButtons buttons, QPointF position);

    MouseSurface* strip;
    QButtonGroup* toolButtons;
    float toolStripGrabY = 0;
};
