#include "cell_region.h"
#include "level_renderer.h"
#include "shown_level.h"
#include "tool_painter.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {
// A level painted as a user paints one, walls and floor most, so that walls meet walls.
void paintRandomLevel(LevelDocument& document, QRandomGenerator& random) {
    document.newLevel(random.bounded(5, 26), random.bounded(5, 26));
    const Level& level = document.level();
    const auto cell = [&] {
        return QPoint(random.bounded(2, level.width() - 2), random.bounded(2, level.height() - 2));
    };
    for (int edit = random.bounded(10, 60); edit > 0; --edit) {
        const int pick = random.bounded(10);
        const int any = paletteTools()[random.bounded(26)].code;
        const int tool = pick < 5 ? WallToolCode : pick < 7 ? 0 : any;
        if (random.bounded(4) == 0) document.fillRectangle(cell(), cell(), tool);
        if (random.bounded(4) != 0) document.applyTool(cell().x(), cell().y(), tool);
    }
    document.applyTool(cell().x(), cell().y(), HeroCode);
}

// A wall by its joins (its look aside), any other code as itself.
int arms(int code) {
    return isWallPiece(code) ? wallKey(armsOfPiece(code)) : -1 - code;
}

// The wall tool's paste: the codes written, then the block's edge painted cell by cell, a wall
// with the wall tool, any other with a tool that paints nothing but re-joins walls beside it.
Level pastedByTheWallTool(const Level& before, const LevelBlock& block, QPoint at, QRect cells) {
    Level level = before;
    LevelRenderer renderer(level);
    (void)renderer.repaintGrid();
    for (int y = cells.top(); y <= cells.bottom(); ++y)
        for (int x = cells.left(); x <= cells.right(); ++x) {
            level.setCell(x, y, block.at(x - at.x(), y - at.y()));
            if (level.cell(x, y) != HeroCode) continue;
            const QPoint old = before.hero().value_or(QPoint(x, y));
            if (!cells.contains(old) && level.cell(old.x(), old.y()) == HeroCode)
                level.setCell(old.x(), old.y(), 0);
            level.setHero(QPoint(x, y));
        }
    for (int y = cells.top(); y <= cells.bottom(); ++y)
        for (int x = cells.left(); x <= cells.right(); ++x)
            if (y == cells.top() || y == cells.bottom() || x == cells.left() || x == cells.right())
                renderer.tools().applyTool(x, y, isWallPiece(level.cell(x, y)) ? 1 : -1);
    return level;
}
}  // namespace

class BlocksTest : public QObject {
    Q_OBJECT

  private slots:
    // Copy here, paste there (at times past the frame): the codes inside, walls on the edge as
    // the wall tool joins them, one hero. Cut and pasted back, the level returns but for walls
    // re-joined round the edge. Each edit one step, undone and redone exactly.
    void copyCutAndPasteAsTheWallToolWould() {
        QRandomGenerator random(24);
        QTemporaryDir folder;
        int exact = 0;
        for (int round = 0; round < 200; ++round) {
            LevelDocument document{QDir(folder.path())};
            paintRandomLevel(document, random);
            const Level& level = document.level();
            const Level original = level;
            const auto anyCell = [&](int from, int edge) {
                return QPoint(random.bounded(from, level.width() - edge),
                              random.bounded(from, level.height() - edge));
            };
            LevelBlock block = document.copyBlock(cellsBetween(anyCell(0, 0), anyCell(0, 0)));
            const QPoint at = anyCell(-2, 0);
            QRect cells = QRect(at, QSize(block.width, block.height)) & cellsInsideFrame(level);
            const Level expected = pastedByTheWallTool(level, block, at, cells);
            const Shown before = shown(document);
            const int steps = document.history().index();
            document.placeBlock(block, at);
            QRect inner = cells.adjusted(1, 1, -1, -1);
            for (int y = 0; y <= level.height(); ++y)
                for (int x = 0; x <= level.width(); ++x) {
                    const int want = inner.isValid() && inner.contains(x, y)
                                         ? block.at(x - at.x(), y - at.y())
                                         : expected.cell(x, y);
                    if (level.cell(x, y) != want && arms(level.cell(x, y)) != arms(want))
                        QFAIL(qPrintable(QString::asprintf("round %d, (%d, %d): %d, not %d", round,
                                                           x, y, level.cell(x, y), want)));
                }
            QCOMPARE(level.hero(), expected.hero());
            QCOMPARE(document.history().index(), steps + (cells.isEmpty() ? 0 : 1));
            const Shown pasted = shown(document);
            if (!cells.isEmpty()) {
                document.undo();
                QCOMPARE(difference(shown(document), before), QString());
                document.redo();
                QCOMPARE(difference(shown(document), pasted), QString());
                document.undo();
            }

            cells = cellsBetween(anyCell(2, 2), anyCell(2, 2));
            block = document.copyBlock(cells);
            document.clearCells(cells);
            for (int y = cells.top(); y <= cells.bottom(); ++y)
                for (int x = cells.left(); x <= cells.right(); ++x) QCOMPARE(level.cell(x, y), 0);
            const Shown cleared = shown(document);
            document.placeBlock(block, cells.topLeft());
            QCOMPARE(document.history().index(), steps + 2);  // copying is no step
            inner = cells.adjusted(1, 1, -1, -1);
            for (int y = 0; y < level.height(); ++y)
                for (int x = 0; x < level.width(); ++x) {
                    const int now = level.cell(x, y);
                    const bool edge = cells.adjusted(-1, -1, 1, 1).contains(x, y) &&
                                      !(inner.isValid() && inner.contains(x, y));
                    if (now != original.cell(x, y) &&
                        !(edge && arms(now) == wallKeyAt(level, x, y)))
                        QFAIL(qPrintable(QString("round %1, (%2, %3)").arg(round).arg(x).arg(y)));
                }
            exact += encodeLevelFile(level) == encodeLevelFile(original) ? 1 : 0;
            QCOMPARE(level.hero(), original.hero());
            document.undo();
            QCOMPARE(difference(shown(document), cleared), QString());
            document.undo();
            QCOMPARE(difference(shown(document), before), QString());
        }
        QVERIFY(exact > 130);  // most cuts have no such wall
    }
};

QTEST_GUILESS_MAIN(BlocksTest)
#include "test_blocks.moc"
