#include "block_preview.h"
#include "cell_region.h"
#include "mouse.h"

#include <QTest>

namespace {
void click(QWidget* map, QPointF at, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    press(map, at, Qt::LeftButton, keys);
    release(map, at);
}
}  // namespace

class BlockGesturesTest : public QObject {
    Q_OBJECT

  private slots:
    // Shift and the right button select, the keys copy, cut, delete and paste, the carried
    // block follows the pointer and a click lays it, at full size and zoomed out; each edit
    // is one step and undo takes each back.
    void selectCopyCutDeleteAndPaste() {
        Editor editor(QSize(24, 24));  // the wall tool
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
        const auto key = [&](int code, Qt::KeyboardModifiers keys = Qt::ControlModifier) {
            QTest::keyClick(&editor.window, Qt::Key(code), keys);
        };
        const auto selectionDrag = [&](QPoint from, QPoint to) {
            press(editor.map, cellCentre(from), Qt::RightButton, Qt::ShiftModifier);
            drag(editor.map, cellCentre(to), Qt::RightButton);
            release(editor.map, cellCentre(to), Qt::RightButton);
        };
        for (const int x : {4, 5, 6}) click(editor.map, cellCentre({x, 4}));
        click(editor.part("toolButton_25"), {5, 5});  // a crate
        click(editor.map, cellCentre({5, 5}));
        const QByteArray painted = encodeLevelFile(editor.level);
        const int steps = editor.document.history().index();

        // Selecting moves no map and changes no cell; the plain right drag still moves the map.
        const Placement map = editor.map->placement();
        selectionDrag({6, 5}, {4, 4});
        QCOMPARE(editor.viewport->selection(), std::optional(QRect(4, 4, 3, 2)));
        QCOMPARE(editor.map->placement(), map);
        QVERIFY(editor.part("selectionOutline")->isVisible());
        QCOMPARE(editor.part("selectionOutline")->geometry(), QRect(256, 256, 192, 128));
        QVERIFY(editor.part("minimapSelectionFrame")->isVisible());
        QCOMPARE(encodeLevelFile(editor.level), painted);
        QCOMPARE(editor.document.history().index(), steps);
        press(editor.map, {300, 300}, Qt::RightButton);
        drag(editor.map, {310, 300}, Qt::RightButton);
        release(editor.map, {310, 300}, Qt::RightButton);
        QCOMPARE(editor.map->placement().left, map.left + 10);
        QVERIFY(editor.viewport->selection().has_value());

        // Copy, then carry the block to (10, 10) and lay it there.
        key(Qt::Key_C);
        key(Qt::Key_V);
        auto* preview = editor.part<BlockPreview>("blockPreview");
        QVERIFY(preview->isVisible());
        drag(editor.map, cellCentre({10, 10}), Qt::NoButton);
        QCOMPARE(preview->geometry(), QRect(640, 640, 192, 128));
        // Column 10 lies in the right edge zone: the map scrolls as while painting.
        QCOMPARE(editor.map->placement().left, map.left + 10 - 32);
        drag(editor.map, cellCentre({10, 10}) + QPointF(8, 0), Qt::NoButton);  // the same cell
        QCOMPARE(editor.map->placement().left, map.left + 10 - 32);
        click(editor.map, cellCentre({10, 10}));
        QVERIFY(!preview->isVisible());
        QCOMPARE(editor.document.history().index(), steps + 1);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 3; ++x)
                QCOMPARE(editor.level.cell(10 + x, 10 + y), editor.level.cell(4 + x, 4 + y));
        const QByteArray pasted = encodeLevelFile(editor.level);

        // Esc drops a carried block; cut clears the selection's cells, Delete too.
        key(Qt::Key_V);
        key(Qt::Key_Escape, Qt::NoModifier);
        QVERIFY(!preview->isVisible());
        key(Qt::Key_X);
        QCOMPARE(editor.level.cell(5, 4), 0);
        QCOMPARE(editor.level.cell(5, 5), 0);
        QCOMPARE(editor.document.history().index(), steps + 2);
        const QByteArray cut = encodeLevelFile(editor.level);
        selectionDrag({10, 10}, {10, 11});
        key(Qt::Key_Delete, Qt::NoModifier);
        QCOMPARE(editor.level.cell(10, 10), 0);
        QCOMPARE(editor.level.cell(11, 10), 18);  // the wall left behind re-joined: an end
        QCOMPARE(editor.document.history().index(), steps + 3);

        // Zoomed out the block follows cells of 32 pixels; the cut block is laid back.
        key(Qt::Key_Minus);
        QCOMPARE(editor.viewport->tileSize(), 32);
        QCOMPARE(editor.part("selectionOutline")->geometry(), QRect(320, 320, 32, 64));
        key(Qt::Key_V);
        const QPointF at(4 * 32 + 16, 4 * 32 + 16);
        drag(editor.map, at, Qt::NoButton);
        QCOMPARE(preview->geometry(), QRect(128, 128, 96, 64));
        click(editor.map, at);
        QCOMPARE(editor.level.cell(5, 5), 25);
        QCOMPARE(editor.document.history().index(), steps + 4);

        // Ctrl+A selects the inside of the frame; a plain click clears the selection.
        key(Qt::Key_A);
        QCOMPARE(editor.viewport->selection(), std::optional(cellsInsideFrame(editor.level)));
        click(editor.map, {20 * 32 + 16, 20 * 32 + 16});
        QVERIFY(!editor.viewport->selection().has_value());
        QVERIFY(!editor.part("minimapSelectionFrame")->isVisible());

        editor.document.undo();  // the click's wall
        editor.document.undo();
        editor.document.undo();
        QCOMPARE(encodeLevelFile(editor.level), cut);
        editor.document.undo();
        QCOMPARE(encodeLevelFile(editor.level), pasted);
        editor.document.undo();
        QCOMPARE(encodeLevelFile(editor.level), painted);
    }
};

QTEST_MAIN(BlockGesturesTest)
#include "test_block_gestures.moc"
