#include "editor_texts.h"
#include "file_bytes.h"
#include "frame_prediction.h"
#include "mouse.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QScreen>
#include <QTest>

#include <sys/stat.h>

namespace {

const QString Help = "information|Nápověda|" + EditorTexts::helpText();

QByteArray jpeg(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG");
    return bytes;
}

}  // namespace

class EditingTest : public QObject {
    Q_OBJECT

  private slots:
    void mapPaintsInsideTheFrameAndScrollsAtTheEdges() {
        Editor editor(QSize(40, 40));
        editor.window.resize(919, 700);  // a 649-pixel viewport beside the 240-pixel left column
        press(editor.map, {600, 330});   // column 9, row 5: paints at once and scrolls right
        QCOMPARE(editor.level.cell(9, 5), 14);
        QCOMPARE(editor.map->placement().left, -32.0f);
        editor.map->setPlacement({-200, 0, 2560, 2560});
        press(editor.map, {250, 330});  // column 3; the left zone ends below 264
        QCOMPARE(editor.map->placement().left, -168.0f);
        editor.map->setPlacement({-40, 0, 2560, 2560});
        press(editor.map, {130, 460});  // column 2; the zone ends below 104
        QCOMPARE(editor.map->placement().left, -40.0f);
        QCOMPARE(editor.level.cell(2, 7), 17);  // joined to the frame on its left

        // Outside the frame's inside nothing is painted and the outline stays.
        const QByteArray before = encodeLevelFile(editor.level);
        const Placement outline = editor.outline->placement();
        for (QPoint cell : {QPoint(1, 10), QPoint(10, 1), QPoint(38, 10), QPoint(10, 38)})
            press(editor.map, cellCentre(cell));
        QCOMPARE(encodeLevelFile(editor.level), before);
        QCOMPARE(editor.outline->placement(), outline);

        // The cell painted last is not painted again, across a palette change and New.
        QTest::mouseClick(editor.part("toolButton_0"), Qt::LeftButton);
        press(editor.map, cellCentre({2, 7}));
        QCOMPARE(editor.level.cell(2, 7), 17);
        editor.newLevel("25", "40");  // the wall tool again
        press(editor.map, cellCentre({2, 7}));
        QCOMPARE(editor.level.cell(2, 7), 0);
        press(editor.map, cellCentre({3, 7}));
        press(editor.map, cellCentre({2, 7}));
        QVERIFY(editor.level.cell(2, 7) >= 1 && editor.level.cell(2, 7) <= 4);
    }

    // A stroke held in the view's corner, a cell right and down a move: moves one a frame or
    // three a frame paint and scroll alike, and the window shows what a fresh paint shows.
    void edgeScrollingMovesSharingAFrameShowTheSame() {
        std::vector<std::pair<QByteArray, Placement>> after;  // the level, the map's place
        for (const int shared : {1, 3}) {
            Editor editor(QSize(60, 60));
            editor.window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&editor.window));
            const Placement view = editor.viewport->placement();  // made 640 x 560
            editor.window.resize(editor.window.size() +
                                 QSize(640 - qRound(view.width), 560 - qRound(view.height)));
            QApplication::processEvents();
            // Where the window system puts the pointer: the client point as the widget stands.
            QWidget* client = editor.map->parentWidget();
            const auto pointer = [&](int move) {
                return editor.map->mapFrom(client, QPointF(624 + move % 2, 528));
            };
            press(editor.map, pointer(0));
            for (int move = 1; move <= 12; ++move) {
                drag(editor.map, pointer(move));
                if (move % shared == 0) QApplication::processEvents();
            }
            release(editor.map, pointer(12));
            QApplication::processEvents();
            after.emplace_back(encodeLevelFile(editor.level), editor.map->placement());
            QCOMPARE(editor.map->pos(), after.back().second.rounded().topLeft());
            QCOMPARE(editor.outline->pos(), editor.outline->placement().rounded().topLeft());

            const QImage window =
                editor.window.screen()->grabWindow(editor.window.winId()).toImage();
            const QRect area(editor.viewport->mapTo(&editor.window, QPoint()),
                             editor.viewport->size());
            QCOMPARE(window.copy(area).convertToFormat(QImage::Format_RGB32),
                     editor.viewport->grab().toImage().convertToFormat(QImage::Format_RGB32));
        }
        const Placement map = after[0].second;  // the press and twelve moves: 13 cells of 32
        QCOMPARE(std::pair(map.left, map.top), std::pair(-416.0f, -416.0f));
        QCOMPARE(after[1], after[0]);
    }

    // Shift drags a rectangle that the release fills (Esc drops it), Ctrl+click floods: one
    // undo step each. A wall ring with crates inside is left, floor around it.
    void rectangleAndFloodFillsByGesture() {
        Editor editor(QSize(20, 20));  // the wall tool
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
        const auto rectangle = [&](QPoint from, QPoint to, bool dropped = false) {
            press(editor.map, cellCentre(from), Qt::LeftButton, Qt::ShiftModifier);
            drag(editor.map, cellCentre(to));
            QVERIFY(editor.part("rectangleOutline")->isVisible());
            if (dropped) QTest::keyClick(editor.map, Qt::Key_Escape, Qt::ShiftModifier);
            release(editor.map, cellCentre(to));
            QVERIFY(!editor.part("rectangleOutline")->isVisible());
        };
        rectangle({9, 9}, {3, 3});
        QTest::mouseClick(editor.part("toolButton_0"), Qt::LeftButton);  // floor
        rectangle({4, 8}, {8, 4});
        QTest::mouseClick(editor.part("toolButton_25"), Qt::LeftButton);  // a crate
        press(editor.map, cellCentre({6, 6}), Qt::LeftButton, Qt::ControlModifier);
        drag(editor.map, cellCentre({3, 3}));  // after a fill the drag paints nothing
        release(editor.map, cellCentre({3, 3}));
        const QByteArray ring = encodeLevelFile(editor.level);
        const auto frame = predictedFrame(20, 20);
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 20; ++x) {
                const int code = editor.level.cell(x, y);
                const bool inside = x >= 4 && x <= 8 && y >= 4 && y <= 8;
                const bool wall = x >= 3 && x <= 9 && y >= 3 && y <= 9 && !inside;
                if (!frame.count({x, y}))
                    QCOMPARE(
                        std::pair(QPoint(x, y), wall ? isWallPiece(code) : code == inside * 25),
                        std::pair(QPoint(x, y), true));
            }
        press(editor.map, cellCentre({12, 12}), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(editor.level.cell(15, 2), 25);
        rectangle({11, 2}, {15, 6}, true);
        editor.document.undo();
        QCOMPARE(encodeLevelFile(editor.level), ring);
        QCOMPARE(editor.level.cell(3, 3), 21);  // the ring's corner, which the drag left alone
    }

    // Left and right together only move the outline. On the minimap a press paints without
    // moving the view sideways, a left drag moves it and paints, a right drag only moves it.
    void theViewFollowsTheRightButtonAndTheMinimap() {
        Editor editor(QSize(20, 20));
        const Placement view = editor.viewport->placement();
        drag(editor.map, cellCentre({6, 6}), Qt::LeftButton | Qt::RightButton);
        QCOMPARE(editor.level.cell(6, 6), 0);
        QCOMPARE(editor.outline->placement().left, 384.0f);
        press(editor.map, {300, 300}, Qt::RightButton);
        drag(editor.map, {310, 305}, Qt::RightButton);  // the map moves 10 pixels right

        auto* minimap = editor.part("minimapSurface");
        press(minimap, {30, 60});  // map (320, 640): column 5, row 10
        QCOMPARE(editor.level.cell(5, 10), 14);
        QCOMPARE(editor.map->placement().left, 10.0f);
        drag(minimap, {42, 60});
        QCOMPARE(editor.level.cell(7, 10), 14);
        QCOMPARE(editor.map->placement().left, -448 + view.width / 2);
        drag(minimap, {54, 90}, Qt::RightButton);
        QCOMPARE(editor.level.cell(9, 15), 0);
        QCOMPARE(editor.map->placement().top, -960 + view.height / 2);
        drag(minimap, {6, 6}, Qt::NoButton);  // hovering moves nothing
        QCOMPARE(editor.map->placement().top, -960 + view.height / 2);
    }

    // Start-up shows the level, then the help; Open and Save ask first, and Save needs a hero.
    void startUpOpenAndSave() {
        Editor editor(QSize(30, 24), QPoint(29, 23), HeroCode);  // the only hero, in the last cell
        const QString file = editor.path(LevelFileName);
        const QByteArray before = bytesOf(file);
        press(editor.map, cellCentre({5, 5}));  // the wall tool is chosen
        editor.dialogs.answers = {false, false};
        editor.window.saveLevel();  // answered No
        editor.window.openLevel();  // answered No
        QCOMPARE(bytesOf(file), before);
        QCOMPARE(editor.level.cell(5, 5), 14);
        editor.window.saveLevel();  // Yes: the hero in the last cell is found, the file written
        const QByteArray saved = encodeLevelFile(editor.level);
        QCOMPARE(bytesOf(file), saved);
        editor.newLevel("20", "20");
        QTest::mouseClick(editor.part("saveButton"), Qt::LeftButton);  // no hero now
        QTest::mouseClick(editor.part("openButton"), Qt::LeftButton);
        QCOMPARE(editor.level.height(), 24);  // the file saved last, not the level without a hero
        const QString save = "question|Uložit přes starý|" + EditorTexts::SaveQuestion;
        const QString open = "question|Otevřít starý|" + EditorTexts::OpenQuestion;
        QCOMPARE(editor.dialogs.shown, QStringList({Help, save, open, save, save,
                                                    "warning|Pozor|" + EditorTexts::NoHero, open}));
    }

    void aFailedRedrawRecoversWithNew() {
        Editor editor(QSize(10, 10), QPoint(4, 4), 200);  // no picture for this code
        QCOMPARE(editor.dialogs.shown,
                 QStringList({"error|hourglass|" + EditorTexts::RedrawFailed, Help}));
        QVERIFY(editor.map->isHidden() && !editor.part("loadingLabel")->isHidden());
        QVERIFY(QApplication::overrideCursor());
        editor.window.newLevel();
        editor.window.newLevel();
        QVERIFY(!editor.map->isHidden() && editor.part("loadingLabel")->isHidden());
        QVERIFY(!QApplication::overrideCursor());
    }

    // A level file read in part or refused (a FIFO, unread) at start-up is told without the
    // hourglass, which shows while the file is read; the start-up goes on.
    void startUpTellsTheLevelFileWithoutTheHourglass() {
        Level level;
        level.reset(20, 20);
        QByteArray shortLine = encodeLevelFile(level);
        shortLine.remove(shortLine.indexOf("\r\n", shortLine.size() / 2) - 1, 1);
        for (const auto& [bytes, told] :
             {std::pair(shortLine, "NEODPOVIDA DELKA RADKU"),
              std::pair(QByteArray(), "level99.VRK nelze otevřít: není to obyčejný soubor")}) {
            Editor editor;
            const QString file = editor.path(LevelFileName);
            QVERIFY(bytes.isEmpty() ? mkfifo(QFile::encodeName(file), 0600) == 0
                                    : writeFile(file, bytes));
            editor.window.startUp();
            QCOMPARE(editor.dialogs.shown.size(), 2);
            QVERIFY2(editor.dialogs.shown[0].startsWith("error||") &&
                         editor.dialogs.shown[0].contains(QString::fromUtf8(told)),
                     qPrintable(editor.dialogs.shown[0]));
            QVERIFY(editor.map->isVisible());
        }
    }

    // A sheet the editor cannot use is told and gives way to the built-in one.
    void startsWithTheSheetItCanUse() {
        const auto row = [](const char* name, const QByteArray& bytes, bool refused, int side) {
            Editor editor;
            QVERIFY(writeFile(editor.path(SpriteSheetFileName), bytes));
            editor.window.startUp();
            const QString told = "error||" + EditorTexts::unreadableSheet(SpriteSheetFileName);
            QCOMPARE(std::tuple(name, editor.dialogs.shown, editor.document.sheet().cellSize()),
                     std::tuple(name, refused ? QStringList({told, Help}) : QStringList{Help},
                                QSize(side, side)));
            QVERIFY2(editor.map->isVisible(), name);  // the new level was drawn
        };
        row("not a JPEG", "GIF89a, or not", true, 64);
        row("too small to cut", jpeg(9, 20), true, 64);
        row("cut off", jpeg(640, 896).chopped(200), true, 64);
        row("uneven", jpeg(105, 150), false, 10);  // the rest unseen
    }

    // New makes only whole sizes from 3 to the largest; otherwise it warns and keeps the level.
    void newTakesOnlySizesItCanMake() {
        const QString warned = "warning|Pozor|" + EditorTexts::badNewSize(MaxLevelSide);
        const auto row = [&](const QString& width, const QString& height, QSize made = {}) {
            Editor editor(QSize(20, 20), QPoint(5, 5), 14);  // a wall piece, which New clears
            const QByteArray before = encodeLevelFile(editor.level);
            editor.newLevel(width, height);
            const QString name = QString("'%1' x '%2'").arg(width, height);
            const QSize size = encodeLevelFile(editor.level) == before  // none: the level kept
                                   ? QSize()
                                   : QSize(editor.level.width(), editor.level.height());
            QCOMPARE(std::tuple(name, editor.dialogs.shown.mid(1), size),
                     std::tuple(name, made.isEmpty() ? QStringList{warned} : QStringList(), made));
        };
        for (const char* text :
             {"", "  ", "-20", "twenty", "20.5", "0x20", "2", "1001", "99999999999999999999999"})
            row(text, "20"), row("20", text);  // refused
        row(" +3 ", "007", {3, 7});            // a sign and zeros
        row("1000", "3", {1000, 3});           // the largest
    }

    // Open tells a missing file or a folder and keeps the level; Save writes it, not on a folder.
    void openRefusesFilesItCannotUse() {
        for (const bool folder : {false, true}) {
            Editor editor(QSize(20, 20), QPoint(5, 5), HeroCode);  // which a read would clear
            const QString file = editor.path(LevelFileName);
            const QByteArray before = encodeLevelFile(editor.level);
            QVERIFY(QFile::remove(file));
            if (folder) QVERIFY(QDir(editor.folder.path()).mkdir(LevelFileName));
            editor.window.openLevel();
            editor.window.saveLevel();
            const QStringList& shown = editor.dialogs.shown;
            QCOMPARE(shown.value(2).section(':', 0, 0),
                     folder ? "error||Soubor level99.VRK nelze otevřít"
                            : "error||Soubor level99.VRK nebyl nalezen.");
            QCOMPARE(encodeLevelFile(editor.level), before);
            QCOMPARE(shown.size(), folder ? 5 : 4);
            if (folder)
                QVERIFY(shown[4].startsWith("error||Level se nepodařilo uložit do souboru"));
            QCOMPARE(bytesOf(file), folder ? QByteArray() : before);  // a folder reads as nothing
        }
    }
};

QTEST_MAIN(EditingTest)
#include "test_editing.moc"
