#include "level_menu.h"
#include "minimap_dots.h"
#include "minimap_view.h"
#include "mouse.h"
#include "tile_codes.h"
#include "tool_strip.h"

#include <QPainter>
#include <QTest>

// Sent, the wheel goes to this widget alone; a real one also passes up from its children.
static void turnWheel(QWidget* over, int angle, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPointF at(over->width() / 2.0, over->height() / 2.0);
    QWheelEvent event(at, over->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &event);
}

class LargeLevelsTest : public QObject {
    Q_OBJECT

  private slots:
    void controlsStayClearOfEachOther() {
        for (const auto& [level, minimap] :
             {std::pair(QSize(3, 3), QSizeF(18, 18)),
              {QSize(41, 41), QSizeF(240, 240)},
              {QSize(20, 200), QSizeF(24, 240)},
              {QSize(1000, 500), QSizeF(240, 120)},
              {QSize(1000, 3), QSizeF(240, 12)},  // the short side stretched
              {QSize(3, 1000), QSizeF(12, 240)},
              // Shown 102.86 pixels high: the last pixel row, partly covered, shows the frame.
              {QSize(700, 300), QSizeF(240, double(1800.0f * 2 / 35))}}) {
            Editor editor;
            editor.window.show();
            editor.newLevel(QString::number(level.width()), QString::number(level.height()));
            auto* minimapView = editor.part<MinimapView>("minimapSurface");
            QCOMPARE(minimapView->placement(),
                     (Placement{10, 17, float(minimap.width()), float(minimap.height())}));
            // As wide as the minimap; a shrunk one's at least as wide as a 20-column level's.
            const bool shrunk = std::max(level.width(), level.height()) > 40;
            const auto column = float(shrunk ? std::max(minimap.width(), 120.0) : minimap.width());
            if (shrunk) {  // the frame's bottom wall shows, also on a partly covered pixel row
                const QImage shown = minimapView->grab().toImage();
                const MinimapScale scale = minimapScaleFor(level.width(), level.height());
                const QPoint wall(int(scale.across.toShown(float(6 * (level.width() / 2)))),
                                  int(scale.down.toShown(float(6 * (level.height() - 2)))));
                QVERIFY(qGray(shown.pixel(wall)) < qGray(MinimapBackground));
            }
            QCOMPARE(editor.part<LevelMenu>("levelMenu")->placement().width, column);
            QCOMPARE(editor.viewport->placement().left, column + 20);
            QVERIFY(editor.part<ToolStrip>("toolStripViewport")->placement().height > 0);

            // No block overlaps another; from 14 columns up the menu holds its parts whole, apart.
            const char* parts[] = {"helpButton",  "mouseHintLabel",    "minimapSurface",
                                   "mapViewport", "toolStripViewport", "levelMenu",
                                   "widthField",  "timesLabel",        "heightField",
                                   "newButton",   "openButton",        "saveButton"};
            const std::size_t menu = 5, count = column >= 84 ? std::size(parts) : menu + 1;
            auto rect = [&](std::size_t i) {
                QWidget* part = editor.part(parts[i]);
                return QRect(part->mapTo(&editor.window, QPoint(0, 0)), part->size());
            };
            for (std::size_t a = 0; a < count; ++a) {
                QVERIFY(a <= menu || rect(menu).contains(rect(a)));
                for (std::size_t b = a + 1; b < count; ++b)
                    QVERIFY2((a == menu && b > menu) || !rect(a).intersects(rect(b)), parts[b]);
            }

            const QPointF point(minimap.width() * 0.6, minimap.height() * 0.3);
            drag(minimapView, point, Qt::RightButton);  // to the middle of the view frame
            const Placement frame = editor.part<OutlineShape>("minimapViewFrame")->placement();
            QVERIFY(qAbs(frame.left + frame.width / 2 - point.x()) < 0.01);
            QVERIFY(qAbs(frame.top + frame.height / 2 - point.y()) < 0.01);
            if (shrunk) QVERIFY(frame.width >= 5 && frame.height >= 5);  // seen however large
        }
    }

    void shrunkenMinimapKeepsLoneCellsInSight() {
        MinimapCanvas minimap;
        minimap.resize(1000, 1000);
        const MinimapScale scale = minimapScaleFor(1000, 1000);
        QRect told;
        minimap.setChangeListener(
            [&](const QRect& cells) { told = scale.shownRect(MinimapCanvas::pixelsOf(cells)); });
        auto shown = [&](QRect exposed = {0, 0, 240, 240}) {
            QImage image(240, 240, QImage::Format_RGB32);
            image.fill(Qt::magenta);
            QPainter painter(&image);
            minimap.paintScaled(painter, exposed, scale);
            return image;
        };
        plotMinimapCell(minimap, 500, 500, 14);  // a lone wall: its pixels are told as changed
        QCOMPARE(told, QRect(119, 119, 2, 2));
        plotMinimapCell(minimap, 100, 100, HeroCode);
        std::vector<QRgb> row(1001, MinimapBackground);
        row[300] = qRgb(0, 0, 0);
        minimap.drawDotRow(300, row.data(), 1001);  // a wall drawn with its whole row
        row[300] = MinimapBackground;
        minimap.drawDotRow(500, row.data(), 498);  // floor up to the lone wall, not over it
        for (int y = 600; y < 700; ++y)            // walls in three columns of four
            for (int x = 600; x < 700; ++x) plotMinimapCell(minimap, x, y, x % 4 ? 14 : 0);
        const QImage image = shown();
        for (QPoint wall : {QPoint(119, 119), QPoint(120, 120), QPoint(72, 72)})  // half dark
            QVERIFY(qGray(image.pixel(wall)) <= qGray(MinimapBackground) / 2 + 1);
        // The hero: a 3 x 3 red square round its centre's pixel, also when painted in part.
        for (int y = 22; y <= 26; ++y)
            for (int x = 22; x <= 26; ++x)
                QCOMPARE(image.pixel(x, y) == qRgb(255, 0, 0),
                         qAbs(x - 24) <= 1 && qAbs(y - 24) <= 1);
        for (const QRect part : {QRect(140, 141, 9, 7), QRect(25, 20, 6, 4)})  // painted alone
            QCOMPARE(shown(part).copy(part), image.copy(part));
    }

    // Zoom keys keep to a level's steps; New keeps the step, clamped, and its undo the map. The
    // wheel moves the map and the palette within their ends.
    void zoomKeysAndWheelStayWithinTheirEnds() {
        Editor editor;
        editor.window.show();
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
        editor.newLevel("300", "300");
        MapViewport* viewport = editor.viewport;
        const auto zoomedBy = [&](int code) {  // the pixels a cell after Ctrl and the key
            QTest::keyClick(editor.map, Qt::Key(code), Qt::ControlModifier);
            return viewport->tileSize();
        };
        // 300 cells fit the 610 pixels high view at 2 pixels a cell, not at 4; no further out.
        QCOMPARE(zoomedBy(Qt::Key_9), 2);
        QCOMPARE(viewport->mapPlacement().width, 300.0f * 2);
        QCOMPARE(zoomedBy(Qt::Key_Minus), 2);
        QCOMPARE(zoomedBy(Qt::Key_0), 64);
        zoomedBy(Qt::Key_Minus);
        QCOMPARE(zoomedBy(Qt::Key_Minus), 16);
        viewport->moveMapTo({-160, -320});  // cells (10, 20) at the view's corner
        editor.newLevel("20", "20");        // fits at 32 pixels a cell
        QCOMPARE(viewport->tileSize(), 16);
        QCOMPARE(zoomedBy(Qt::Key_Plus), 32);
        editor.document.undo();  // back to 300 x 300, shown at 32 pixels a cell
        const Placement map = viewport->mapPlacement();
        QCOMPARE(std::pair(map.left, map.top), std::pair(-320.0f, -640.0f));

        zoomedBy(Qt::Key_0);
        editor.newLevel("100", "50");
        const QSize view = viewport->contentsRect().size();
        const auto mapAfter = [&](int angle, Qt::KeyboardModifiers keys = Qt::NoModifier) {
            turnWheel(viewport, angle, keys);
            return Placement(viewport->mapPlacement());
        };
        QCOMPARE(mapAfter(-120 * 1000).top, float(view.height() - 64 * 50));
        QCOMPARE(mapAfter(-120 * 1000, Qt::ShiftModifier).left, float(view.width() - 64 * 100));
        QCOMPARE(editor.part<OutlineShape>("minimapViewFrame")->placement().left,
                 float(64 * 100 - view.width()) / 64 * 6 * 240 / 600);
        // A map dragged past its end stays there: the wheel turned on never pulls it back.
        const float pastEnd = float(view.height() - 64 * 50 - 200);
        viewport->moveMapTo({0, pastEnd});
        QCOMPARE(mapAfter(-120).top, pastEnd);
        QCOMPARE(mapAfter(120).top, pastEnd + 64);

        auto* palette = editor.part<ToolStrip>("toolStripViewport");
        turnWheel(palette, -120);
        QCOMPARE(palette->stripPlacement().top, 8.0f - 72);
        turnWheel(palette, -120 * 100);
        QCOMPARE(palette->stripPlacement().top, palette->placement().height - 1888);
        // Growing the window keeps the last entry at the bottom, then the first at the top.
        editor.window.resize(editor.window.width(), editor.window.height() + 100);
        QCOMPARE(palette->stripPlacement().top, palette->placement().height - 1888);
        editor.window.resize(editor.window.width(), 3000);
        QCOMPARE(palette->stripPlacement().top, 8.0f);
        editor.window.resize(896, 641);
        turnWheel(palette, 120 * 100);
        QCOMPARE(palette->stripPlacement().top, 8.0f);

        editor.newLevel("100", "5");  // a map lower than the view
        QCOMPARE(mapAfter(-120).top, 0.0f);
    }
};

QTEST_MAIN(LargeLevelsTest)
#include "test_large_levels.moc"
