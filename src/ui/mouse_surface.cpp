#include "mouse_surface.h"

#include <QMouseEvent>

namespace {
// Only the three buttons the editor knows count, so that a held extra button changes nothing.
Qt::MouseButtons known(Qt::MouseButtons buttons) {
    return buttons & (Qt::LeftButton | Qt::RightButton | Qt::MiddleButton);
}
}  // namespace

MouseSurface::MouseSurface(QWidget* parent, QColor background, const QString& name)
    : QWidget(parent) {
    setObjectName(name);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    setPalette(colours);
    setAutoFillBackground(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
}

void MouseSurface::mousePressEvent(QMouseEvent* event) {
    emit pressed(known(event->button()), placed(event->position()), event->modifiers());
}

void MouseSurface::mouseMoveEvent(QMouseEvent* event) {
    emit moved(known(event->buttons()), placed(event->position()));
}

void MouseSurface::mouseReleaseEvent(QMouseEvent* event) {
    emit released(known(event->button()), placed(event->position()));
}
