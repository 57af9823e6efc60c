#include "area_painter.h"
#include "cell_region.h"
#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "minimap_dots.h"
#include "tile_codes.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <set>

// Properties over many random levels and edits, from a fixed seed so a failure repeats.
class PropertyTest : public QObject {
    Q_OBJECT

  private slots:
    void randomLevelsSurviveTheFile() {
        QRandomGenerator random(20261123);
        for (int round = 0; round < 200; ++round) {  // the largest level first, over 1 MB
            Level level, back;
            const int w = round ? random.bounded(0, 60) : MaxLevelSide;
            const int h = round ? random.bounded(0, 60) : MaxLevelSide;
            level.reset(w, h);
            std::optional<QPoint> hero;  // the last one in reading order
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {  // any byte but CR, which would end the line
                    const int code = random.bounded(-48, 208);
                    level.setCell(x, y, qint16(code == '\r' - 48 ? 0 : code));
                    if (code == HeroCode) hero = QPoint(x, y);
                }
            QByteArray bytes = encodeLevelFile(level);
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            QCOMPARE(readLevelFrom(back, buffer, LevelFileName).warning, QString());
            QCOMPARE(encodeLevelFile(back), bytes);  // sizes and cells
            QCOMPARE(back.hero(), hero);
        }
    }

    // The whole-grid repaint leaves what painting cell by cell, column by column, leaves.
    void wholeGridRepaintMatchesCellByCell() {
        QRandomGenerator random(99);
        const int codes[] = {0, 0, 0, 1, 17, 25, 30, 114, 124, 134, 136, 139, 139, -3, 140, 207};
        const auto& own = ownDotColours();
        const qint16 uncoloured =
            qint16(std::find(own.begin(), own.end(), NoOwnColour) - own.begin());
        for (int round = 0; round < 300; ++round) {
            Level level;
            const int w = random.bounded(0, 12), h = random.bounded(0, 12);
            level.reset(w, h);
            LevelRenderer whole(level, qRgb(round, 1, 2)), single(level, qRgb(round, 1, 2));
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) level.setCell(x, y, uncoloured);
            QVERIFY(whole.repaintGrid());
            bool coloured = true;
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {  // bad codes in every third round
                    level.setCell(x, y, qint16(codes[random.bounded(round % 3 ? 13 : 16)]));
                    coloured = coloured && hasPicture(level.cell(x, y)) &&
                               own[std::size_t(level.cell(x, y))] != NoOwnColour;
                }
            single.map().resize(w, h), single.minimap().resize(w, h);
            std::optional<QPoint> stop;
            for (int x = 0; x <= w && !stop; ++x)
                for (int y = 0; y <= h && !stop; ++y)
                    if (!single.sprites().paintSprite(x, y, level.cell(x, y))) stop = QPoint(x, y);
            QCOMPARE(whole.repaintGrid(), !stop);
            QCOMPARE(whole.minimap().drawingColour(), single.minimap().drawingColour());
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    QCOMPARE(whole.map().cellAt(x, y), single.map().cellAt(x, y));
                    QCOMPARE(whole.minimap().dotAt(x, y), single.minimap().dotAt(x, y));
                }
            QCOMPARE(whole.sprites().showsGrid(), coloured);
            whole.sprites().paintSprite(0, 0, uncoloured);
            QVERIFY(!whole.sprites().showsGrid());
        }
    }
    // A rectangle or flood fill leaves what the tool applied to its cells one by one leaves, but
    // for which look each wall drew; its cells are those a plain search finds.
    void areaFillsMatchPaintingCellByCell() {
        const auto tools = paletteTools();
        const int fillTools[] = {FloorCode, WallToolCode, 23, 124, 138};
        QRandomGenerator random(28);
        for (int round = 0; round < 60; ++round) {
            Level level;
            const int w = random.bounded(5, 36), h = random.bounded(5, 36);
            level.reset(w, h);
            {
                LevelRenderer renderer(level);
                QVERIFY(renderer.repaintGrid());
                renderer.drawFrame(WallToolCode);
                // Mostly walls and floor, for large regions; some edits miss the level.
                for (int edit = 0; edit < w * h; ++edit) {
                    const int pick = random.bounded(10);
                    const int tool = pick < 4   ? WallToolCode
                                     : pick < 8 ? FloorCode
                                                : tools[random.bounded(int(tools.size()))].code;
                    const int low = edit % 8 ? 2 : -1, high = edit % 8 ? -2 : 2;
                    renderer.tools().applyTool(random.bounded(low, w + high),
                                               random.bounded(low, h + high), tool);
                }
                for (int y = 0; y <= h; ++y)
                    for (int x = 0; x <= w; ++x) {
                        if (x < w && y < h) QCOMPARE(renderer.map().cellAt(x, y), level.cell(x, y));
                        QCOMPARE(renderer.minimap().dotAt(x, y),
                                 *minimapColourFor(level.cell(x, y), MinimapBackground));
                    }
                QVERIFY(renderer.sprites().showsGrid());
            }
            const QPoint a(random.bounded(0, w), random.bounded(0, h));
            const QPoint b(random.bounded(0, w), random.bounded(0, h));
            const bool flood = round % 2 == 0;
            const CellRegion region = flood ? floodRegion(level, a) : rectangleRegion(level, a, b);
            // The flood's cells: those of its kind (a wall: any wall piece) reached through four
            // neighbours; the rectangle's: both corners belong, whichever way the drag went.
            std::set<std::pair<int, int>> found;
            const int kind = level.cell(a.x(), a.y());
            const std::function<void(int, int)> grow = [&](int x, int y) {
                const int c = isInsideFrame(level, x, y) ? level.cell(x, y) : -1;
                if (c >= 0 && (isWallPiece(kind) ? isWallPiece(c) : c == kind) &&
                    found.insert({x, y}).second)
                    grow(x + 1, y), grow(x - 1, y), grow(x, y + 1), grow(x, y - 1);
            };
            if (flood) grow(a.x(), a.y());
            for (int y = std::min(a.y(), b.y()); !flood && y <= std::max(a.y(), b.y()); ++y)
                for (int x = std::min(a.x(), b.x()); x <= std::max(a.x(), b.x()); ++x)
                    if (isInsideFrame(level, x, y)) found.insert({x, y});
            QCOMPARE(region.count(), int(found.size()));
            for (const auto& [x, y] : found) QVERIFY(region.contains(x, y));
            const int tool = fillTools[random.bounded(int(std::size(fillTools)))];
            Level filled = level, oneByOne = level;
            LevelRenderer fillRenderer(filled), cellRenderer(oneByOne);
            QVERIFY(fillRenderer.repaintGrid() && cellRenderer.repaintGrid());
            AreaPainter(filled, fillRenderer.sprites(), fillRenderer.tools()).fill(region, tool, a);
            region.forEachCell([&](int x, int y) { cellRenderer.tools().applyTool(x, y, tool); });
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    const int got = filled.cell(x, y), want = oneByOne.cell(x, y);
                    if (isWallPiece(got) && isWallPiece(want)) continue;
                    if (got != want)
                        QFAIL(qPrintable(QString::asprintf(
                            "round %d: (%d, %d) is %d, one by one %d", round, x, y, got, want)));
                    QCOMPARE(fillRenderer.minimap().dotAt(x, y),
                             *minimapColourFor(got, MinimapBackground));
                }
            // Every wall the fill wrote or re-joined has the piece its neighbours call for.
            for (int y = 1; y < h; ++y)
                for (int x = 1; x < w; ++x) {
                    const int code = filled.cell(x, y);
                    const bool touched = region.contains(x, y) || region.contains(x - 1, y) ||
                                         region.contains(x + 1, y) || region.contains(x, y - 1) ||
                                         region.contains(x, y + 1);
                    if (isWallPiece(code) && touched && toolKind(tool) != ToolKind::Hero)
                        QCOMPARE(wallKey(armsOfPiece(code)), wallKeyAt(filled, x, y));
                }
        }
    }
};

QTEST_GUILESS_MAIN(PropertyTest)
#include "test_properties.moc"
