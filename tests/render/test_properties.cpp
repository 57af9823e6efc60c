#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "minimap_dots.h"
#include "recording_dialogs.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>

namespace {
// The cell whose picture was missing, or -1 when `paint` ran through.
template <typename Paint>
int failingCell(Paint paint) {
    try {
        paint();
    } catch (const SheetCellError& error) {
        return error.cell;
    }
    return -1;
}
}  // namespace

// Properties over many random levels and edits, from a fixed seed so a failure repeats.
class PropertyTest : public QObject {
    Q_OBJECT

  private slots:
    void randomLevelsSurviveTheFile() {
        QRandomGenerator random(20261123);
        RecordingDialogs dialogs;
        for (int round = 0; round < 200; ++round) {
            Level level, back;
            level.Allocate(random.bounded(0, 60), random.bounded(0, 60));
            const int w = level.GridWidth, h = level.GridHeight;
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    // Every code a file can carry: a carriage return (-35) would end its line.
                    const int code = random.bounded(-48, 208);
                    level.setCell(x, y, static_cast<qint16>(code == '\r' - 48 ? 0 : code));
                }
            QByteArray bytes = EncodeLevelFile(level);
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            QVERIFY(!ReadLevelFrom(back, dialogs, buffer, "level99.VRK"));
            QCOMPARE(QSize(back.GridWidth, back.GridHeight), QSize(w, h));
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x)
                    QCOMPARE(back.cell(x, y), x < w && y < h ? level.cell(x, y) : 0);
        }
        QVERIFY(dialogs.shown.isEmpty());
    }

    void gridMapAndMinimapAgreeAfterAnyEdits() {
        const int tools[] = {0,  1,  2,  3,  4,   5,   6,   7,   8,   9,   23,  24,  25,
                             26, 27, 28, 29, 124, 125, 126, 127, 134, 135, 136, 137, 138};
        QRandomGenerator random(7);
        const SpriteSheet sheet(QImage(640, 896, QImage::Format_RGB32));
        for (int round = 0; round < 20; ++round) {
            Level level;
            level.Allocate(random.bounded(3, 40), random.bounded(3, 40));
            const int w = level.GridWidth, h = level.GridHeight;
            LevelRenderer renderer(level, sheet);
            renderer.RedrawLevelCells([] { return WallToolCode; });
            for (int edit = 0; edit < 400; ++edit)
                renderer.cells.DrawCell(random.bounded(-1, w + 2), random.bounded(-1, h + 2),
                                        tools[random.bounded(26)]);
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    if (x < w && y < h) QCOMPARE(renderer.map.cellAt(x, y), level.cell(x, y));
                    QCOMPARE(renderer.minimap.dotAt(x, y),
                             *MinimapColourFor(level.cell(x, y), MinimapBackground));
                }
        }
    }

    // The whole-grid repaint must leave exactly what painting each cell in column order
    // leaves: map, dots, drawing colour and the failing cell, uncoloured code 139 included.
    void wholeGridRepaintMatchesCellByCell() {
        QRandomGenerator random(99);
        const SpriteSheet sheet(QImage(640, 896, QImage::Format_RGB32));
        const int codes[] = {0, 0, 0, 1, 17, 25, 30, 114, 124, 134, 136, 139, 139, -3, 140, 207};
        for (int round = 0; round < 300; ++round) {
            Level level;
            level.Allocate(random.bounded(0, 12), random.bounded(0, 12));
            const int w = level.GridWidth, h = level.GridHeight;
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x)  // bad codes in every third round
                    level.setCell(x, y, qint16(codes[random.bounded(round % 3 ? 13 : 16)]));
            LevelRenderer whole(level, sheet, qRgb(round, 1, 2));
            LevelRenderer single(level, sheet, qRgb(round, 1, 2));
            for (LevelRenderer* r : {&whole, &single}) r->map.resize(w, h), r->minimap.resize(w, h);
            auto cellByCell = [&] {
                for (int x = 0; x <= w; ++x)
                    for (int y = 0; y <= h; ++y) single.sprites.PaintSprite(x, y, level.cell(x, y));
            };
            QCOMPARE(failingCell([&] { whole.sprites.PaintWholeGrid(); }), failingCell(cellByCell));
            QCOMPARE(whole.minimap.drawingColour(), single.minimap.drawingColour());
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    QCOMPARE(whole.map.cellAt(x, y), single.map.cellAt(x, y));
                    QCOMPARE(whole.minimap.dotAt(x, y), single.minimap.dotAt(x, y));
                }
        }
    }
};

QTEST_GUILESS_MAIN(PropertyTest)
#include "test_properties.moc"
