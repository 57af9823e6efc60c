#include "block_preview.h"
#include "block_texts.h"
#include "cell_region.h"
#include "mouse.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

class BlockGesturesTest : public QObject {
    Q_OBJECT

  private slots:
    // What the window shows of selecting and carrying, at full size and zoomed out.
    void selectionAndCarriedBlockFollowTheMouse() {
        Editor editor(QSize(24, 24));  // the wall tool
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
        const auto key = [&](int code, Qt::KeyboardModifiers keys = Qt::ControlModifier) {
            QTest::keyClick(&editor.window, Qt::Key(code), keys);
        };
        QWidget* outline = editor.part("selectionOutline");
        QWidget* minimapOutline = editor.part("minimapSelectionFrame");
        auto* preview = editor.part<BlockPreview>("blockPreview");
        for (const int x : {4, 5, 6}) press(editor.map, cellCentre({x, 4}));
        release(editor.map, cellCentre({6, 4}));
        const QByteArray painted = encodeLevelFile(editor.level);
        const int steps = editor.document.history().index();

        // Shift with the right button selects without moving the map or making a step.
        const Placement map = editor.map->placement();
        press(editor.map, cellCentre({6, 5}), Qt::RightButton, Qt::ShiftModifier);
        drag(editor.map, cellCentre({4, 4}), Qt::RightButton);
        release(editor.map, cellCentre({4, 4}), Qt::RightButton);
        QCOMPARE(editor.viewport->selection(), std::optional(QRect(4, 4, 3, 2)));
        QCOMPARE(editor.map->placement(), map);
        QCOMPARE(outline->geometry(), QRect(256, 256, 192, 128));
        QVERIFY(outline->isVisible() && minimapOutline->isVisible());
        QCOMPARE(editor.document.history().index(), steps);
        QCOMPARE(encodeLevelFile(editor.level), painted);

        // The carried block follows the pointer; column 10 lies in the right edge zone, where
        // the map scrolls as while painting, once a cell. Esc drops the block, then the selection.
        key(Qt::Key_C);
        key(Qt::Key_V);
        drag(editor.map, cellCentre({10, 10}), Qt::NoButton);
        QCOMPARE(preview->geometry(), QRect(640, 640, 192, 128));
        QCOMPARE(editor.map->placement().left, map.left - 32);
        QCoreApplication::processEvents();  // the map widget follows its placement once a frame
        drag(editor.map, cellCentre({10, 10}) + QPointF(8, 0), Qt::NoButton);
        QCOMPARE(editor.map->placement().left, map.left - 32);
        key(Qt::Key_Escape, Qt::NoModifier);
        QVERIFY(!preview->isVisible() && editor.viewport->selection());
        key(Qt::Key_Escape, Qt::NoModifier);
        QVERIFY(!editor.viewport->selection() && !minimapOutline->isVisible());

        // Zoomed out, both follow cells of 32 pixels; a click lays the block, one step.
        key(Qt::Key_A);
        QCOMPARE(editor.viewport->selection(), std::optional(cellsInsideFrame(editor.level)));
        key(Qt::Key_Minus);
        QCOMPARE(outline->geometry(), QRect(64, 64, 20 * 32, 20 * 32));
        key(Qt::Key_V);
        drag(editor.map, {4 * 32 + 16, 9 * 32 + 16}, Qt::NoButton);
        QCOMPARE(preview->geometry(), QRect(128, 288, 96, 64));
        press(editor.map, {4 * 32 + 16, 9 * 32 + 16});
        QVERIFY(!preview->isVisible());
        QCOMPARE(editor.level.cell(5, 9), editor.level.cell(5, 4));
        QCOMPARE(editor.document.history().index(), steps + 1);
        press(editor.map, {20 * 32 + 16, 20 * 32 + 16});  // a plain click clears the selection
        QVERIFY(!editor.viewport->selection());
    }

    // A block goes from window to window through the clipboard; anything else is told once.
    void blocksTravelBetweenWindowsThroughTheClipboard() {
        Editor from(QSize(12, 12), {3, 3}, qint16(FirstFurniture));
        Editor to(QSize(30, 30));
        const auto keyIn = [](Editor& editor, int key) {
            editor.window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&editor.window));
            QTest::keyClick(&editor.window, Qt::Key(key), Qt::ControlModifier);
        };
        from.viewport->selectAll();
        keyIn(from, Qt::Key_C);
        auto* preview = to.part<BlockPreview>("blockPreview");
        keyIn(to, Qt::Key_V);
        drag(to.map, cellCentre({5, 5}), Qt::NoButton);
        QVERIFY(preview->isVisible());
        press(to.map, cellCentre({5, 5}));  // the 8 x 8 cells inside the frame, furniture and all
        QCOMPARE(to.document.copyBlock(QRect(5, 5, 8, 8)),
                 from.document.copyBlock(*from.viewport->selection()));

        const auto pasted = [&](const QString& text) {
            QGuiApplication::clipboard()->setText(text);
            to.dialogs.shown.clear();
            QTest::keyClick(&to.window, Qt::Key_V, Qt::ControlModifier);
            drag(to.map, cellCentre({6, 6}), Qt::NoButton);
            return !preview->isVisible() && to.dialogs.shown.size() == 1
                       ? to.dialogs.shown.front()
                       : QStringLiteral("carried or told more than once");
        };
        const QByteArray before = encodeLevelFile(to.level);
        QCOMPARE(pasted(QStringLiteral("hello")), "warning|Pozor|" + BlockTexts::notOurs());
        QVERIFY(pasted(QStringLiteral("VARNOK-BLOK 1 2 2\r\n00\r\n0\r\n"))
                    .startsWith("warning|Pozor|" + BlockTexts::refused({}).left(20)));
        QCOMPARE(encodeLevelFile(to.level), before);
    }
};

QTEST_MAIN(BlockGesturesTest)
#include "test_block_gestures.moc"
