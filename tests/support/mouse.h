#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

// Sends a real mouse event to a widget: `button` is the one pressed (none for a move),
// `held` every button held down.
inline void sendMouse(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}
inline void press(QWidget* widget, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
    sendMouse(widget, QEvent::MouseButtonPress, at, button, button);
}
inline void drag(QWidget* widget, QPointF at, Qt::MouseButtons held = Qt::LeftButton) {
    sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, held);
}
