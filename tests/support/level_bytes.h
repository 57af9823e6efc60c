#pragma once

#include "file_bytes.h"
#include "frame_prediction.h"
#include "x11_session.h"

// Level files as the game reads them, written without the editor's code, and the places of
// the editor's 896 x 1150 window that the tests in the real program click.

using Grid = std::map<std::pair<int, int>, int>;
inline const Grid heroOnly = {{{7, 13}, 135}};  // a level with its hero, so that Save writes

// A level of `side` x `side` holding `cells`; with `framed`, a new level's frame around them.
inline QByteArray levelFile(Grid cells, bool framed = false, int side = 20) {
    if (framed) cells.merge(predictedFrame(side, side));
    const QByteArray size = ' ' + QByteArray::number(side + 14) + " \r\n";
    QByteArray bytes = "1\r\n" + size + size;
    for (int y = -7; y < side + 7; ++y) {  // seven lines and columns of border around the level
        QByteArray row(side + 14, '0');
        for (int x = 0; x < side; ++x)
            if (cells.count({x, y})) row[7 + x] = char(48 + cells.at({x, y}));
        bytes += row + "\r\n";
    }
    return bytes;
}

// The file's bytes once they are not `unlike` (within 10 s).
inline QByteArray waitForFile(const QString& path, const QByteArray& unlike = {}) {
    QByteArray bytes;
    X11Session::waitUntil(10000, [&] { return (bytes = bytesOf(path)) != unlike; });
    return bytes;
}
// The code of a cell of a saved level.
inline int savedCell(const QByteArray& saved, int x, int y) {
    return quint8(saved.split('\n').value(3 + 7 + y).at(7 + x)) - 48;
}

// Palette entries (with the strip dragged `up`), map cells, the menu's Uložit.
inline QPoint entry(int place, int up = 0) {
    return {50, 179 + 72 * place - up};
}
inline QPoint cell(int column, int row) {
    return {174 + 64 * column, 51 + 64 * row};
}
inline const QPoint saveButton(54, 1115);
