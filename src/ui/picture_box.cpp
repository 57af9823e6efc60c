#include "picture_box.h"

#include <QMouseEvent>

namespace {
int shiftMask(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}
int buttonMask(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? LeftButton : 0) |
           (buttons & Qt::RightButton ? RightButton : 0) |
           (buttons & Qt::MiddleButton ? MiddleButton : 0);
}
}  // namespace

bool placeWidget(QWidget* widget, Placement& current, const Placement& next) {
    if (next.width < 0 || next.height < 0) return false;
    current = next;
    widget->setGeometry(next.rounded());
    return true;
}

PictureBox::PictureBox(QWidget* parent, QColor background, const char* name) : QWidget(parent) {
    setObjectName(name);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    setPalette(colours);
    setAutoFillBackground(true);
    setMouseTracking(true);
}

bool PictureBox::move(const Placement& next) {
    return placeWidget(this, place, next);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (onMouseDown)
        onMouseDown(buttonMask(event->button()), shiftMask(event->modifiers()),
                    static_cast<float>(event->position().x()),
                    static_cast<float>(event->position().y()));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (onMouseMove)
        onMouseMove(buttonMask(event->buttons()), shiftMask(event->modifiers()),
                    static_cast<float>(event->position().x()),
                    static_cast<float>(event->position().y()));
}
