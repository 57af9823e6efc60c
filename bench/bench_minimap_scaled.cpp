#include "drawn_level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "shown_editor.h"
#include "tile_codes.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>

// The minimap of a large level before it was shrunk (full size, 6 pixels a cell, of which a
// window shows only a part) and after (the whole level in the 240-pixel box), and the events
// of the editor window that repaint it.

namespace {

// The editor window's design size.
const QSize DesignSize(896, 641);

// What a 896 x 641 window showed of a full-size minimap at (10, 17).
const QRect WindowShown(0, 0, 896 - 10, 641 - 17);

void BM_MinimapShownFullSize(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    QImage target(WindowShown.size(), QImage::Format_RGB32);
    QPainter painter(&target);
    for (auto _ : state) drawn.minimap().paint(painter, WindowShown);
}

void BM_MinimapShownShrunk(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    const MinimapScale scale = minimapScaleFor(drawn.level.width(), drawn.level.height());
    QImage target(drawn.minimap().shownSize(scale), QImage::Format_RGB32);
    QPainter painter(&target);
    for (auto _ : state) drawn.minimap().paintScaled(painter, target.rect(), scale);
}

// One cell's dot changed and the pixels it was told to repaint painted.
template <typename Paint>
void dotChanged(benchmark::State& state, DrawnLevel& drawn, Paint paint) {
    QRect told;
    drawn.minimap().setChangeListener(
        [&](const QRect& cells) { told = MinimapCanvas::pixelsOf(cells); });
    int n = 0;
    for (auto _ : state) {
        drawn.minimap().setDrawingColour(++n % 2 ? qRgb(0, 0, 0) : MinimapBackground);
        const int side = drawn.level.width();
        drawn.minimap().drawDot(2 + n % (side - 4), side / 2);
        paint(told);
    }
}

void BM_MinimapDotFullSize(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    QImage target(WindowShown.size(), QImage::Format_RGB32);
    QPainter painter(&target);
    dotChanged(state, drawn, [&](const QRect& told) { drawn.minimap().paint(painter, told); });
}

void BM_MinimapDotShrunk(benchmark::State& state) {
    DrawnLevel drawn(static_cast<int>(state.range(0)));
    const MinimapScale scale = minimapScaleFor(drawn.level.width(), drawn.level.height());
    QImage target(drawn.minimap().shownSize(scale), QImage::Format_RGB32);
    QPainter painter(&target);
    dotChanged(state, drawn, [&](const QRect& told) {
        drawn.minimap().paintScaled(painter, scale.shownRect(told), scale);
    });
}

// New, the whole-level redraw and the window's repaint.
void BM_NewLevelShown(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)), DesignSize);
    for (auto _ : state) {
        editor.window.newLevel();
        QCoreApplication::processEvents();
    }
}

// The whole minimap of a shown window repainted at once, as when the window was covered.
void BM_MinimapRepaintShown(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)), DesignSize);
    QWidget* minimap = editor.window.findChild<QWidget*>("minimapSurface");
    for (auto _ : state) minimap->repaint();
}

// Open of the drawn level, the whole-level redraw and the window's repaint.
void BM_OpenLevelShown(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)), DesignSize);
    const DrawnLevel drawn(static_cast<int>(state.range(0)));
    if (!writeLevelFile(drawn.level, editor.document.levelFile()).ok())
        return state.SkipWithError("the level file cannot be written");
    for (auto _ : state) {
        editor.window.openLevel();
        QCoreApplication::processEvents();
        editor.dialogs.shown.clear();
    }
}

// A right-button drag step of a cell, up and down in turn, and the repaints it causes: the
// view, and the minimap under the frame's old and new place.
void BM_DragStepShown(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)), DesignSize);
    MapViewport& viewport = *editor.viewport;
    viewport.mapPressed(Qt::RightButton, {1000, 1000});
    int n = 0;
    for (auto _ : state) {
        viewport.mapMoved(Qt::RightButton, {1000, ++n % 2 ? 1064.0 : 936.0});
        QCoreApplication::processEvents();
    }
}

// A left-button move into a new cell inside the view: the cell painted, map and minimap
// repainted there.
void BM_PaintCellShown(benchmark::State& state) {
    ShownEditor editor(static_cast<int>(state.range(0)), DesignSize);
    int n = 0;
    for (auto _ : state) {
        const int cell = 3 + n++ % 5;
        editor.viewport->mapMoved(Qt::LeftButton, {64.0 * cell + 32, 64.0 * 3 + 32});
        QCoreApplication::processEvents();
    }
}

}  // namespace

BENCHMARK(BM_MinimapShownFullSize)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MinimapShownShrunk)->Arg(41)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MinimapDotFullSize)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MinimapDotShrunk)->Arg(41)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_NewLevelShown)->Arg(40)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MinimapRepaintShown)->Arg(40)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OpenLevelShown)->Arg(40)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DragStepShown)->Arg(40)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaintCellShown)->Arg(40)->Arg(1000)->Unit(benchmark::kMicrosecond);
