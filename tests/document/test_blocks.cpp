#include "block_copy.h"
#include "cell_region.h"
#include "level_document.h"
#include "level_renderer.h"
#include "tile_codes.h"
#include "tool_painter.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {
// A level painted as a user paints one: strokes and rectangles of every tool, the hero
// among them, inside a frame of walls.
void paintRandomLevel(LevelDocument& document, QRandomGenerator& random) {
    document.newLevel(random.bounded(5, 26), random.bounded(5, 26));
    const Level& level = document.level();
    const auto cell = [&] {
        return QPoint(random.bounded(2, level.width() - 2), random.bounded(2, level.height() - 2));
    };
    // Walls and floor most, so that walls meet walls.
    const auto tool = [&] {
        const int pick = random.bounded(10);
        return pick < 5   ? WallToolCode
               : pick < 7 ? FloorCode
                          : paletteTools()[random.bounded(26)].code;
    };
    for (int edit = random.bounded(10, 60); edit > 0; --edit) {
        if (random.bounded(4) == 0)
            document.fillRectangle(cell(), cell(), tool());
        else
            document.applyTool(cell().x(), cell().y(), tool());
    }
}

// A wall counts as the same when its arms are: a straight wall's look is drawn at random.
bool sameCell(int actual, int expected) {
    if (isWallPiece(expected))
        return isWallPiece(actual) &&
               wallKey(armsOfPiece(actual)) == wallKey(armsOfPiece(expected));
    return actual == expected;
}

int heroCount(const Level& level) {
    int heroes = 0;
    for (int y = 0; y < level.height(); ++y)
        for (int x = 0; x < level.width(); ++x) heroes += level.cell(x, y) == HeroCode ? 1 : 0;
    return heroes;
}

// What the wall tool makes of a pasted block: the codes written as they are, then every cell
// on the block's edge painted one by one, a wall with the wall tool, any other cell with a
// tool that paints nothing but still re-joins the walls beside it.
Level pastedByTheWallTool(const Level& before, const LevelBlock& block, QPoint at) {
    Level level = before;
    LevelRenderer renderer(level);
    (void)renderer.repaintGrid();
    const QRect cells = QRect(at, QSize(block.width, block.height)) & cellsInsideFrame(level);
    std::optional<QPoint> hero;
    for (int y = cells.top(); y <= cells.bottom(); ++y)
        for (int x = cells.left(); x <= cells.right(); ++x) {
            level.setCell(x, y, block.at(x - at.x(), y - at.y()));
            if (level.cell(x, y) == HeroCode) hero = QPoint(x, y);
        }
    const std::optional<QPoint> old = before.hero();
    if (hero && old && !cells.contains(*old) && level.cell(old->x(), old->y()) == HeroCode)
        level.setCell(old->x(), old->y(), FloorCode);
    if (hero) level.setHero(hero);
    constexpr int PaintsNothing = -1;
    for (int y = cells.top(); y <= cells.bottom(); ++y)
        for (int x = cells.left(); x <= cells.right(); ++x) {
            const bool edge =
                y == cells.top() || y == cells.bottom() || x == cells.left() || x == cells.right();
            if (edge)
                renderer.tools().applyTool(
                    x, y, isWallPiece(level.cell(x, y)) ? WallToolCode : PaintsNothing);
        }
    return level;
}

struct Saved {
    QByteArray bytes;
    std::optional<QPoint> hero;
    std::vector<int> mapCells;
    bool operator==(const Saved&) const = default;
};

Saved saved(const LevelDocument& document) {
    Saved all{encodeLevelFile(document.level()), document.level().hero(), {}};
    for (int y = 0; y <= document.level().height(); ++y)
        for (int x = 0; x <= document.level().width(); ++x)
            all.mapCells.push_back(document.map().cellAt(x, y));
    return all;
}
}  // namespace

class BlocksTest : public QObject {
    Q_OBJECT

  private slots:
    // Copy here, paste there (partly past the edge at times): the block's codes inside, the
    // walls on its edge and round it as the wall tool joins them, one hero; undo and redo
    // give back each level exactly.
    void pasteJoinsTheEdgeAsTheWallToolWould() {
        QRandomGenerator random(24);
        QTemporaryDir folder;
        for (int round = 0; round < 150; ++round) {
            LevelDocument document{QDir(folder.path())};
            paintRandomLevel(document, random);
            const Level& level = document.level();
            const QPoint from(random.bounded(0, level.width()), random.bounded(0, level.height()));
            const QPoint to(random.bounded(0, level.width()), random.bounded(0, level.height()));
            const LevelBlock block = document.copyBlock(cellsBetween(from, to));
            const QPoint at(random.bounded(-2, level.width()), random.bounded(-2, level.height()));
            const Level expected = pastedByTheWallTool(level, block, at);
            const Saved before = saved(document);
            const int steps = document.history().index();
            document.placeBlock(block, at);
            const Saved after = saved(document);

            const QRect cells =
                QRect(at, QSize(block.width, block.height)) & cellsInsideFrame(level);
            const QRect inner = cells.adjusted(1, 1, -1, -1);
            for (int y = 0; y <= level.height(); ++y)
                for (int x = 0; x <= level.width(); ++x) {
                    const int code = level.cell(x, y);
                    if (inner.isValid() && inner.contains(x, y))
                        QCOMPARE(code, int(block.at(x - at.x(), y - at.y())));
                    else
                        QVERIFY2(sameCell(code, expected.cell(x, y)),
                                 qPrintable(QStringLiteral("round %1, cell (%2, %3): %4, not %5")
                                                .arg(round)
                                                .arg(x)
                                                .arg(y)
                                                .arg(code)
                                                .arg(expected.cell(x, y))));
                }
            QCOMPARE(level.hero(), expected.hero());
            if (heroCount(expected) == 1) QCOMPARE(heroCount(level), 1);
            if (cells.isEmpty()) {  // nothing of the block fits: no step
                QCOMPARE(document.history().index(), steps);
                QVERIFY(after == before);
                continue;
            }
            QCOMPARE(document.history().index(), steps + 1);
            document.undo();
            QVERIFY(saved(document) == before);
            document.redo();
            QVERIFY(saved(document) == after);
        }
    }

    // Cut, then paste back at the same place: the saved bytes come back, but for walls on the
    // edge or just outside that the edits re-joined (a straight wall's look is drawn anew, and
    // a wall that did not join its neighbours, as next to a room, now does). Delete, cut and
    // paste are a step each, undone exactly.
    void cutAndPasteBackRestoresTheLevel() {
        QRandomGenerator random(2424);
        QTemporaryDir folder;
        int exact = 0;
        for (int round = 0; round < 150; ++round) {
            LevelDocument document{QDir(folder.path())};
            paintRandomLevel(document, random);
            const Level& level = document.level();
            const Level original = level;
            const QRect cells = cellsBetween(
                QPoint(random.bounded(2, level.width() - 2), random.bounded(2, level.height() - 2)),
                QPoint(random.bounded(2, level.width() - 2),
                       random.bounded(2, level.height() - 2)));
            const Saved before = saved(document);
            const int steps = document.history().index();

            const LevelBlock block = document.copyBlock(cells);
            QCOMPARE(document.history().index(), steps);  // copying is no step
            document.clearCells(cells);
            QCOMPARE(document.history().index(), steps + 1);
            for (int y = cells.top(); y <= cells.bottom(); ++y)
                for (int x = cells.left(); x <= cells.right(); ++x) QCOMPARE(level.cell(x, y), 0);
            const Saved cleared = saved(document);
            document.placeBlock(block, cells.topLeft());
            QCOMPARE(document.history().index(), steps + 2);
            const QRect inner = cells.adjusted(1, 1, -1, -1);
            const QRect around = cells.adjusted(-1, -1, 1, 1);
            for (int y = 0; y < level.height(); ++y)
                for (int x = 0; x < level.width(); ++x) {
                    // A wall on the edge or just outside may have been re-joined: it then
                    // joins exactly the walls beside it.
                    const int now = level.cell(x, y);
                    const bool edge =
                        around.contains(x, y) && !(inner.isValid() && inner.contains(x, y));
                    const bool joined =
                        isWallPiece(now) && wallKey(armsOfPiece(now)) == wallKeyAt(level, x, y);
                    QVERIFY2(now == original.cell(x, y) || (edge && joined),
                             qPrintable(QStringLiteral("round %1, cell (%2, %3): %4, not %5")
                                            .arg(round)
                                            .arg(x)
                                            .arg(y)
                                            .arg(now)
                                            .arg(original.cell(x, y))));
                }
            exact += encodeLevelFile(level) == before.bytes ? 1 : 0;
            QCOMPARE(level.hero(), original.hero());

            document.undo();
            QVERIFY(saved(document) == cleared);
            document.undo();
            QVERIFY(saved(document) == before);
        }
        QVERIFY(exact > 100);  // most cuts have no straight wall joining in from outside
    }
};

QTEST_GUILESS_MAIN(BlocksTest)
#include "test_blocks.moc"
