#include "editor_texts.h"
#include "editor_window.h"
#include "level_document.h"
#include "map_viewport.h"
#include "mouse.h"
#include "recording_dialogs.h"
#include "tile_codes.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

class UndoTest : public QObject {
    Q_OBJECT

  private slots:
    // The keys on the real window: a stroke is one step, New and Open are steps, a size field
    // keeps its own undo, and Open, Save, New and the help run their buttons' flows (Save
    // adds no step: the count stays after the New that drops the Open).
    void keysTakeBackStrokesNewAndOpen() {
        QTemporaryDir folder;
        RecordingDialogs dialogs;
        LevelDocument document{QDir(folder.path())};
        EditorWindow window(document, dialogs);
        window.startUp();  // no level file: a new 20 x 20 level
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* map = window.findChild<QWidget*>("mapSurface");
        auto* widthField = window.findChild<QLineEdit*>("widthField");
        const auto key = [](int code, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(code), modifiers);
        };
        const auto stroke = [&](std::initializer_list<int> columns) {  // along row 5
            press(map, {64.0 * *columns.begin() + 32, 352});
            for (const int x : columns) drag(map, {64.0 * x + 32, 352});
            sendMouse(map, QEvent::MouseButtonRelease, {}, Qt::LeftButton, Qt::NoButton);
        };
        const auto bytes = [&] { return encodeLevelFile(document.level()); };
        const QByteArray start = bytes();

        stroke({5, 6, 7});
        QCOMPARE(document.history().count(), 1);
        const QByteArray stroked = bytes();
        key(Qt::Key_Z);
        QCOMPARE(bytes(), start);
        key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(bytes(), stroked);
        key(Qt::Key_Z);
        stroke({7});  // the cell painted last paints again after an undo
        QVERIFY(isWallPiece(document.level().cell(7, 5)));

        // Enter in a size field runs New; Ctrl+Z there undoes the typing, not the New, until a
        // click on the palette; the undo brings back the map's place and the fields' texts.
        press(map, {300, 300}, Qt::RightButton);
        drag(map, {240, 260}, Qt::RightButton);
        const QByteArray beforeNew = bytes();
        widthField->setFocus();
        widthField->selectAll();
        QTest::keyClicks(widthField, "30\r");
        QCOMPARE(document.level().width(), 30);
        key(Qt::Key_Z);
        QCOMPARE(widthField->text(), "20");
        QCOMPARE(document.level().width(), 30);
        QTest::mouseClick(window.findChild<QToolButton*>("toolButton_25"), Qt::LeftButton);
        key(Qt::Key_Z);
        QCOMPARE(bytes(), beforeNew);
        QCOMPARE(widthField->text(), "30");
        QCOMPARE(window.findChild<MapViewport*>("mapViewport")->mapPlacement().left, -60.0f);
        key(Qt::Key_Y);
        QCOMPARE(document.level().width(), 30);

        Level file;
        file.reset(25, 24);
        QVERIFY(writeLevelFile(file, document.levelFile()).ok());
        key(Qt::Key_O);
        QVERIFY(dialogs.shown.last().contains(EditorTexts::OpenQuestion));
        QCOMPARE(document.level().height(), 24);
        key(Qt::Key_Z);
        QCOMPARE(document.level().width(), 30);
        const int steps = document.history().count();
        key(Qt::Key_S);  // no hero: asked, then warned
        QVERIFY(dialogs.shown.last().contains(EditorTexts::NoHero));
        key(Qt::Key_F1, Qt::NoModifier);
        QVERIFY(dialogs.shown.last().contains(EditorTexts::HelpTitle));
        key(Qt::Key_N);  // a New after an undo, the Open that could be redone goes
        QCOMPARE(document.history().count(), steps);
        QVERIFY(!document.history().canRedo());
    }
};

QTEST_MAIN(UndoTest)
#include "test_undo.moc"
