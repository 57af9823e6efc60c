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

// Properties over many random levels and edits, from a fixed seed so a failure repeats.
class PropertyTest : public QObject {
    Q_OBJECT

  private slots:
    void randomLevelsSurviveTheFile() {
        QRandomGenerator random(20261123);
        RecordingDialogs dialogs;
        for (int round = 0; round < 200; ++round) {
            Level level;
            level.Allocate(random.bounded(0, 60), random.bounded(0, 60));
            for (int y = 0; y <= level.GridHeight; ++y)
                for (int x = 0; x <= level.GridWidth; ++x) {
                    // Every code a file can carry: a carriage return (-35) would end its line.
                    const int code = random.bounded(-48, 208);
                    level.setCell(x, y, static_cast<qint16>(code == '\r' - 48 ? 0 : code));
                }
            QByteArray bytes = EncodeLevelFile(level);
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            Level back;
            QVERIFY(!ReadLevelFrom(back, dialogs, buffer, "level99.VRK"));
            QCOMPARE(back.GridWidth, level.GridWidth);
            QCOMPARE(back.GridHeight, level.GridHeight);
            for (int y = 0; y <= level.GridHeight; ++y)
                for (int x = 0; x <= level.GridWidth; ++x) {
                    const bool proper = x < level.GridWidth && y < level.GridHeight;
                    QCOMPARE(back.cell(x, y), proper ? level.cell(x, y) : 0);
                }
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
            LevelRenderer renderer(level, sheet);
            renderer.RedrawLevelCells([] { return WallToolCode; });
            for (int edit = 0; edit < 400; ++edit)
                renderer.cells.DrawCell(random.bounded(-1, level.GridWidth + 2),
                                        random.bounded(-1, level.GridHeight + 2),
                                        tools[random.bounded(26)]);
            for (int y = 0; y <= level.GridHeight; ++y)
                for (int x = 0; x <= level.GridWidth; ++x) {
                    const int code = level.cell(x, y);
                    if (x < level.GridWidth && y < level.GridHeight)
                        QCOMPARE(renderer.map.cellAt(x, y), code);
                    QCOMPARE(renderer.minimap.dotAt(x, y),
                             *MinimapColourFor(code, MinimapBackground));
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
            const bool withBadCodes = round % 3 == 0;
            for (int y = 0; y <= level.GridHeight; ++y)
                for (int x = 0; x <= level.GridWidth; ++x)
                    level.setCell(x, y, qint16(codes[random.bounded(withBadCodes ? 16 : 13)]));
            const QRgb start = qRgb(round, 1, 2);
            auto fresh = [&](LevelRenderer& r) {
                r.map.resize(level.GridWidth, level.GridHeight);
                r.minimap.resize(level.GridWidth, level.GridHeight);
            };
            LevelRenderer whole(level, sheet, start), single(level, sheet, start);
            fresh(whole);
            fresh(single);
            int wholeFailure = -1, singleFailure = -1;
            try {
                whole.sprites.PaintWholeGrid();
            } catch (const SheetCellError& error) {
                wholeFailure = error.cell;
            }
            try {
                for (int x = 0; x <= level.GridWidth; ++x)
                    for (int y = 0; y <= level.GridHeight; ++y)
                        single.sprites.PaintSprite(x, y, level.cell(x, y));
            } catch (const SheetCellError& error) {
                singleFailure = error.cell;
            }
            QCOMPARE(wholeFailure, singleFailure);
            QCOMPARE(whole.minimap.drawingColour(), single.minimap.drawingColour());
            for (int y = 0; y <= level.GridHeight; ++y)
                for (int x = 0; x <= level.GridWidth; ++x) {
                    QCOMPARE(whole.map.cellAt(x, y), single.map.cellAt(x, y));
                    QCOMPARE(whole.minimap.dotAt(x, y), single.minimap.dotAt(x, y));
                }
        }
    }
};

QTEST_GUILESS_MAIN(PropertyTest)
#include "test_properties.moc"
