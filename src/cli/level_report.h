#pragma once

#include "level.h"

#include <QJsonObject>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>

// A level file as the editor's reader takes it, with every message the editor would give
// about it, in the order it would give them.
struct LevelReport {
    QString file;       // the path as the user gave it
    bool read = false;  // false: the header was refused and nothing else is known
    int width = 0;
    int height = 0;
    std::optional<QPoint> hero;  // the hero the editor keeps, when the level holds one
    QStringList messages;

    bool ok() const { return messages.isEmpty(); }
    // "FILE: ok, W × H, hero at (x, y)" or "FILE: " and the messages.
    QString line() const;
    // file, ok, width, height, hero and messages; unknown values are null.
    QJsonObject json() const;
};

// Reads `path` into `level` exactly as the editor's reader does.
LevelReport reportLevel(const QString& path, Level& level);

// The message about the first cell whose code has no picture, naming its file, code and cell.
QString noPictureMessage(const QString& path, const Level& level, QPoint cell);
