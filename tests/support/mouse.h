#pragma once

#include "editor_window.h"
#include "level_document.h"
#include "map_viewport.h"
#include "mouse_surface.h"
#include "outline_shape.h"
#include "recording_dialogs.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>

// Driving the editor window: real mouse events, and a window whose parts are found by name.

// A real mouse event: `button` the one pressed (none for a move), `held` all held down.
inline void sendMouse(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons held, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, keys);
    QApplication::sendEvent(widget, &event);
}
inline void press(QWidget* widget, QPointF at, Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers keys = Qt::NoModifier) {
    sendMouse(widget, QEvent::MouseButtonPress, at, button, button, keys);
}
inline void release(QWidget* widget, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
    sendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}
inline void drag(QWidget* widget, QPointF at, Qt::MouseButtons held = Qt::LeftButton) {
    sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, held);
}

// The middle of a map cell, in map pixels.
inline QPointF cellCentre(QPoint cell) {
    return {64.0 * cell.x() + 32, 64.0 * cell.y() + 32};
}

// Writes an all-floor level file of this size, holding `code` in cell `at`.
inline void writeLevel(const QString& path, QSize size, QPoint at = {}, qint16 code = 0) {
    Level file;
    file.reset(size.width(), size.height());
    file.setCell(at.x(), at.y(), code);
    if (!writeLevelFile(file, path).ok()) qFatal("no level file written");
}

// An editor window on a document working in a fresh folder of its own.
struct Editor {
    Editor() = default;
    // Started on such a level file.
    explicit Editor(QSize size, QPoint at = {}, qint16 code = 0) {
        writeLevel(path(LevelFileName), size, at, code);
        window.startUp();
    }

    QTemporaryDir folder;
    RecordingDialogs dialogs;
    LevelDocument document{QDir(folder.path())};
    EditorWindow window{document, dialogs};
    const Level& level = document.level();
    MapViewport* viewport = part<MapViewport>("mapViewport");
    MouseSurface* map = part<MouseSurface>("mapSurface");
    OutlineShape* outline = part<OutlineShape>("cursorOutline");

    QString path(const char* fileName) const { return folder.filePath(fileName); }
    template <typename Part = QWidget>
    Part* part(const char* name) const {
        Part* found = window.findChild<Part*>(name);
        if (!found) qFatal("the window has no part %s", name);
        return found;
    }
    // Types the sizes into the menu and presses New.
    void newLevel(const QString& width, const QString& height) {
        part<QLineEdit>("widthField")->setText(width);
        part<QLineEdit>("heightField")->setText(height);
        part<QPushButton>("newButton")->click();
    }
};
