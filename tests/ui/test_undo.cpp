#include "editor_texts.h"
#include "mouse.h"
#include "tile_codes.h"

#include <QTest>
#include <QToolButton>

class UndoTest : public QObject {
    Q_OBJECT

  private slots:
    // The keys on the window: a stroke, New and Open are steps; a size field undoes its typing.
    void keysTakeBackStrokesNewAndOpen() {
        Editor editor(QSize(25, 24));  // started on this level file
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
        const LevelHistory& history = editor.document.history();
        auto* widthField = editor.part<QLineEdit>("widthField");
        const auto key = [](int code, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(code), modifiers);
        };
        const auto stroke = [&](std::initializer_list<int> columns) {  // along row 5
            press(editor.map, cellCentre({*columns.begin(), 5}));
            for (const int x : columns) drag(editor.map, cellCentre({x, 5}));
            sendMouse(editor.map, QEvent::MouseButtonRelease, {}, Qt::LeftButton, Qt::NoButton);
        };
        const auto bytes = [&] { return encodeLevelFile(editor.level); };
        const QByteArray start = bytes();

        stroke({5, 6, 7});
        QCOMPARE(history.count(), 1);
        const QByteArray stroked = bytes();
        key(Qt::Key_Z);
        QCOMPARE(bytes(), start);
        key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);  // redo, as Ctrl+Y
        QCOMPARE(bytes(), stroked);
        key(Qt::Key_Z);
        stroke({7});  // the cell painted last paints again after an undo
        QVERIFY(isWallPiece(editor.level.cell(7, 5)));

        // Enter in a size field runs New; Ctrl+Z there first undoes the typing, and once the
        // typing is used, the New, wherever the focus is; the fields show the level's size.
        const QByteArray beforeNew = bytes();
        widthField->setFocus();
        widthField->selectAll();
        QTest::keyClicks(widthField, "31");
        key(Qt::Key_Z);
        QCOMPARE(widthField->text(), "25");
        QCOMPARE(history.count(), 1);
        widthField->selectAll();
        QTest::keyClicks(widthField, "30\r");
        QCOMPARE(editor.level.width(), 30);
        key(Qt::Key_Z);
        QCOMPARE(bytes(), beforeNew);
        QCOMPARE(widthField->text(), "25");
        key(Qt::Key_Y);
        QCOMPARE(editor.level.width(), 30);
        QCOMPARE(widthField->text(), "30");
        QTest::mouseClick(editor.part<QToolButton>("toolButton_25"), Qt::LeftButton);

        key(Qt::Key_O);
        QCOMPARE(editor.level.width(), 25);
        widthField->setText("99");  // typed, never used
        key(Qt::Key_Z);
        QCOMPARE(editor.level.width(), 30);
        QCOMPARE(widthField->text(), "30");
        key(Qt::Key_F1, Qt::NoModifier);
        QVERIFY(editor.dialogs.shown.last().contains(EditorTexts::HelpTitle));
        key(Qt::Key_N);  // a New after an undo: the Open that could be redone goes
        QVERIFY(!history.canRedo());
    }
};

QTEST_MAIN(UndoTest)
#include "test_undo.moc"
