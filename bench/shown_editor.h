#pragma once

#include "map_geometry.h"
#include "map_viewport.h"
#include "mouse.h"

#include <QCoreApplication>
#include <QRect>
#include <QSize>
#include <QString>

// A shown editor window of the given size, started on an all-floor level of the given side.
struct ShownEditor : Editor {
    explicit ShownEditor(int side, QSize windowSize = {1920, 1080}) : Editor(QSize(side, side)) {
        window.resize(windowSize);
        window.show();
        QCoreApplication::processEvents();
    }
    // New with this side in both size fields, and the repaints it schedules.
    void newLevel(int side) {
        Editor::newLevel(QString::number(side), QString::number(side));
        QCoreApplication::processEvents();
    }
};

// The shown cells clear of the edges that scroll the map.
inline QRect shownCells(const MapViewport& viewport) {
    const Placement map = viewport.mapPlacement();
    const Placement view = viewport.placement();
    const int reach = static_cast<int>(EdgeMargin) + TileSize;
    return {QPoint(static_cast<int>(-map.left + reach) / TileSize,
                   static_cast<int>(-map.top + reach) / TileSize),
            QPoint(static_cast<int>(-map.left + view.width - reach) / TileSize - 1,
                   static_cast<int>(-map.top + view.height - reach) / TileSize - 1)};
}
