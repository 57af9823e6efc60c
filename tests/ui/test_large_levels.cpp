#include "editor_window.h"
#include "level_document.h"
#include "level_menu.h"
#include "map_viewport.h"
#include "minimap_dots.h"
#include "minimap_view.h"
#include "mouse.h"
#include "outline_shape.h"
#include "recording_dialogs.h"
#include "tile_codes.h"
#include "tool_strip.h"

#include <QLineEdit>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

namespace {
// The editor in its design size on a folder of its own, holding a new level of this size.
struct LargeLevelEditor {
    QTemporaryDir folder;
    RecordingDialogs dialogs;
    LevelDocument document{QDir(folder.path())};
    EditorWindow window{document, dialogs};

    LargeLevelEditor(int width, int height) {
        window.show();
        part<QLineEdit>("widthField")->setText(QString::number(width));
        part<QLineEdit>("heightField")->setText(QString::number(height));
        window.newLevel();
    }
    template <typename Part = QWidget>
    Part* part(const char* name) const {
        Part* found = window.findChild<Part*>(name);
        if (!found) qFatal("the window has no part %s", name);
        return found;
    }
};

// Sent, the wheel goes to this widget alone; a real one also passes up from its children.
void turnWheel(QWidget* over, int angle, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPointF at(over->width() / 2.0, over->height() / 2.0);
    QWheelEvent event(at, over->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &event);
}

}  // namespace

class LargeLevelsTest : public QObject {
    Q_OBJECT

  private slots:
    void controlsStayClearOfEachOther_data() {
        QTest::addColumn<QSize>("level");
        QTest::addColumn<QSizeF>("minimap");
        QTest::addColumn<float>("column");
        QTest::newRow("3 x 3") << QSize(3, 3) << QSizeF(18, 18) << 18.0f;
        QTest::newRow("20 x 20") << QSize(20, 20) << QSizeF(120, 120) << 120.0f;
        QTest::newRow("40 x 40") << QSize(40, 40) << QSizeF(240, 240) << 240.0f;
        QTest::newRow("41 x 41") << QSize(41, 41) << QSizeF(240, 240) << 240.0f;
        QTest::newRow("20 x 200") << QSize(20, 200) << QSizeF(24, 240) << 120.0f;
        QTest::newRow("200 x 20") << QSize(200, 20) << QSizeF(240, 24) << 240.0f;
        QTest::newRow("1000 x 1000") << QSize(1000, 1000) << QSizeF(240, 240) << 240.0f;
    }
    void controlsStayClearOfEachOther() {
        QFETCH(QSize, level);
        QFETCH(QSizeF, minimap);
        QFETCH(float, column);
        LargeLevelEditor editor(level.width(), level.height());
        auto* minimapView = editor.part<MinimapView>("minimapSurface");
        QCOMPARE(minimapView->placement(),
                 (Placement{10, 17, float(minimap.width()), float(minimap.height())}));
        QCOMPARE(editor.part<LevelMenu>("levelMenu")->placement().width, column);
        QCOMPARE(editor.part<MapViewport>("mapViewport")->placement().left, column + 20);
        QVERIFY(editor.part<ToolStrip>("toolStripViewport")->placement().height > 0);

        // No block of the window overlaps another; from 14 columns up the menu holds its
        // parts whole, and they do not overlap either.
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
        // The fields show their whole sizes: moving the cursor does not scroll them.
        for (auto* field :
             {editor.part<QLineEdit>("widthField"), editor.part<QLineEdit>("heightField")}) {
            field->home(false);
            const QImage start = field->grab().toImage();
            field->end(false);
            QCOMPARE(field->grab().toImage(), start);
        }

        // Dragging on the minimap brings the point to the middle of the view frame.
        const QPointF point(minimap.width() * 0.6, minimap.height() * 0.3);
        drag(minimapView, point, Qt::RightButton);
        const Placement frame = editor.part<OutlineShape>("minimapViewFrame")->placement();
        QVERIFY(qAbs(frame.left + frame.width / 2 - point.x()) < 0.01);
        QVERIFY(qAbs(frame.top + frame.height / 2 - point.y()) < 0.01);
    }

    void shrunkenMinimapKeepsLoneCellsInSight() {
        MinimapCanvas minimap;
        minimap.resize(1000, 1000);
        const MinimapScale scale = minimapScaleFor(1000, 1000);
        QCOMPARE(minimap.shownSize(scale), QSize(240, 240));
        QRect told;
        minimap.setChangeListener([&](const QRect& pixels) { told = scale.shownRect(pixels); });
        auto shown = [&](QRect exposed = {0, 0, 240, 240}) {
            QImage image(240, 240, QImage::Format_RGB32);
            image.fill(Qt::magenta);
            QPainter painter(&image);
            minimap.paintScaled(painter, exposed, scale);
            return image;
        };
        // A lone wall and the hero; only the pixels told as changed change.
        for (auto [x, y, code] : {std::tuple{500, 500, 14}, {100, 100, HeroCode}}) {
            const QImage before = shown();
            plotMinimapCell(minimap, x, y, code);
            const QImage after = shown();
            for (int py = 0; py < 240; ++py)
                for (int px = 0; px < 240; ++px)
                    QVERIFY(before.pixel(px, py) == after.pixel(px, py) || told.contains(px, py));
        }
        for (int y = 600; y < 700; ++y)  // walls in three columns of four
            for (int x = 600; x < 700; ++x) plotMinimapCell(minimap, x, y, x % 4 ? 14 : 0);
        const QImage image = shown();
        for (QPoint wall : {QPoint(119, 119), QPoint(120, 120)})  // at least half as dark
            QVERIFY(qGray(image.pixel(wall)) <= qGray(MinimapBackground) / 2 + 1);
        QCOMPARE(image.pixel(118, 118), MinimapBackground);
        QCOMPARE(image.pixel(24, 23), qRgb(255, 0, 0));
        const QRgb mixed = image.pixel(150, 150);  // about a quarter of the floor's colour
        QVERIFY2(qAbs(qRed(mixed) - 46) + qAbs(qGreen(mixed) - 55) + qAbs(qBlue(mixed) - 60) < 20,
                 qPrintable(QColor(mixed).name()));
        // A part painted alone is the same part of the whole.
        const QRect part(100, 110, 9, 7);
        QCOMPARE(shown(part).copy(part), image.copy(part));
        QCOMPARE(shown(part).pixel(99, 110), qRgb(255, 0, 255));
    }

    void wheelMovesTheMapAndThePaletteWithinTheirEnds() {
        LargeLevelEditor editor(100, 50);
        auto* viewport = editor.part<MapViewport>("mapViewport");
        auto* frame = editor.part<OutlineShape>("minimapViewFrame");
        const QSize view = viewport->contentsRect().size();
        const float scale = 240 / 600.0f;
        turnWheel(viewport, -120);
        QCOMPARE(viewport->mapPlacement().top, -64.0f);
        QCOMPARE(frame->placement().top, 6 * scale);
        turnWheel(viewport, -120, Qt::ShiftModifier);
        QCOMPARE(viewport->mapPlacement().left, -64.0f);
        turnWheel(viewport, -120 * 1000);
        QCOMPARE(viewport->mapPlacement().top, float(view.height() - 64 * 50));
        turnWheel(viewport, -120 * 1000, Qt::ShiftModifier);
        QCOMPARE(viewport->mapPlacement().left, float(view.width() - 64 * 100));
        QCOMPARE(frame->placement().left, float(64 * 100 - view.width()) / 64 * 6 * scale);

        auto* palette = editor.part<ToolStrip>("toolStripViewport");
        turnWheel(palette, -120);
        QCOMPARE(palette->stripPlacement().top, 8.0f - 72);
        turnWheel(palette, -120 * 100);
        QCOMPARE(palette->stripPlacement().top, palette->placement().height - 1888);
        turnWheel(palette, 120 * 100);
        QCOMPARE(palette->stripPlacement().top, 8.0f);

        QWidget* minimap = editor.part("minimapSurface");
        minimap->grab();  // the whole minimap blended once; then only what changes
        editor.document.applyTool(60, 30, HeroCode);
        QCOMPARE(minimap->grab().toImage().pixel(144, 72), qRgb(255, 0, 0));

        editor.part<QLineEdit>("heightField")->setText("5");  // a map lower than the view
        editor.window.newLevel();
        turnWheel(viewport, -120);
        QCOMPARE(viewport->mapPlacement().top, 0.0f);
    }
};

QTEST_MAIN(LargeLevelsTest)
#include "test_large_levels.moc"
