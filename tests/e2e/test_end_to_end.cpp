#include "level_bytes.h"
#include "level_document.h"

#include <QTest>
#include <QThread>

#include <sys/resource.h>
#include <csignal>
#include <functional>
#include <optional>

namespace {

constexpr int Wall = -1;  // any wall piece in a saved cell

int distance(QRgb a, QRgb b) {
    return qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
}

const QString Recover = QStringLiteral("Obnovit level");

}  // namespace

class EndToEndTest : public QObject {
    Q_OBJECT
    std::optional<X11Session> x;
    std::optional<QTemporaryDir> folder;

    // The sheet, and the level unless it is empty, in `dir`.
    void prepareFolder(const QDir& dir, const QByteArray& level = {},
                       const QString& name = "level99.VRK") {
        QVERIFY(QFile::copy(VARNOK_SHEET, dir.filePath("EditPic.jpg")));
        if (!level.isEmpty()) QVERIFY(writeFile(dir.filePath(name), level));
    }
    // The sheet and `level` in the case's folder, the editor started there (see openEditor).
    bool openLevel(const QByteArray& level = levelFile(heroOnly)) {
        prepareFolder(folder->path(), level);
        return openEditor();
    }
    // Starts the editor in the case's folder, closes its help and makes its window 896 x 1150.
    bool openEditor(const QStringList& arguments = {}) {
        if (!x->startEditor(folder->path(), arguments) || !x->closeBox("Nápověda")) return false;
        x->resizeEditor(896, 1150);
        return true;
    }
    // Clicks Uložit and answers Ano, the default, to the question whether to overwrite.
    bool save(QPoint button = saveButton) {
        x->clickInWindow({button});
        return x->closeBox("Uložit přes starý");
    }
    QString level() const { return folder->filePath("level99.VRK"); }
    // The first cell saved over a hero-only level of this side that is not `expected(x, y)`,
    // beyond the new level's frame (any wall) and the hero at (7, 13); empty when none.
    QString savedWrongly(int side, const std::function<int(int, int)>& expected) {
        const QByteArray saved = waitForFile(level(), levelFile(heroOnly, false, side));
        if (saved.count('\n') != 3 + side + 14) return "not saved";
        const Grid frame = predictedFrame(side, side);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                const int code = savedCell(saved, x, y),
                          want = x == 7 && y == 13 ? 135 : expected(x, y);
                if (frame.count({x, y}) || want == Wall ? code < 1 || code > 22 : code != want)
                    return QStringLiteral("(%1, %2) holds %3").arg(x).arg(y).arg(code);
            }
        return {};
    }
    // Saves the level on screen; its bytes.
    QByteArray savedBytes() {
        x->resizeEditor(896, 1150);
        const QByteArray before = bytesOf(level());
        return save() ? waitForFile(level(), before) : QByteArray();
    }
    QString recovery() const { return x->home() + "/.local/state/varnok/recovery/"; }
    // The recovery copies, in recovery/ or a folder in it.
    QStringList copies(const QString& under = {}) const {
        return QDir(recovery() + under).entryList({"*.VRK"}, QDir::Files);
    }
    // Starts the editor again, which asks nothing (no box of this title) and runs on.
    void startsWithoutAsking(const QString& title) {
        QVERIFY(openEditor());
        QThread::msleep(1500);
        QVERIFY(!x->boxShown(title));
        QVERIFY(x->editorRunning());
    }
    // Paints a crate at (5, 5), waits until the copy has surely been written, kills the editor.
    void paintAndKill() {
        x->clickInWindow({entry(4), cell(5, 5)});
        QThread::msleep(3000);
        QCOMPARE(::kill(pid_t(x->editorId()), SIGKILL), 0);
        QCOMPARE(x->editorExitCode(), -1);
    }

  private slots:
    // A fresh X server for every case, then its folder, named in Czech with blanks.
    void init() {
        x.emplace();
        folder.emplace(QDir::tempPath() + "/Úrovně hry XXXXXX");
    }

    void paintAndSaveALevel() {
        // A level file of its own name is named on the command line; the editor starts a folder up.
        const QDir levels(folder->filePath("moje levely"));
        QVERIFY(levels.mkpath("."));
        const Grid old = {{{12, 12}, 26}};  // a flowerpot
        prepareFolder(levels, levelFile(old), "hrad.vrk");
        QVERIFY(openEditor({levels.filePath("hrad.vrk")}));
        x->clickInWindow({entry(4), cell(5, 5), entry(1), cell(8, 4)});  // Bedna, Zeď
        // Drag the strip up by its background to reach the rooms and the hero.
        const QPoint client = x->clientOrigin();
        for (int to : {100, 700}) x->drag(client + QPoint(100, 900), client + QPoint(100, to));
        x->clickInWindow({entry(14, 1000), cell(4, 8), entry(22, 1000), cell(7, 13)});  // A, Hrdina
        QVERIFY(save());

        Grid edited = {{{12, 12}, 26}, {{5, 5}, 25}, {{8, 4}, 14}, {{7, 13}, 135}};
        const int roomA[] = {30, 31, 32, 40, 41, 42, 50, 51, 52, 60, 114, 62};  // 3 x 4 from (4, 8)
        for (int i = 0; i < 12; ++i) edited[{4 + i % 3, 8 + i / 3}] = roomA[i];
        QCOMPARE(waitForFile(levels.filePath("hrad.vrk"), levelFile(old)), levelFile(edited, true));
        QVERIFY(QDir(folder->path()).entryList(QDir::Files).isEmpty());
        QVERIFY(!levels.exists("level99.VRK"));

        // A file size limit under the 1.3 kB level fails the next save alone.
        const rlimit kilobyte{1024, 1024};
        QCOMPARE(prlimit(pid_t(x->editorId()), RLIMIT_FSIZE, &kilobyte, nullptr), 0);
        QVERIFY(save());
        QVERIFY(x->messageText("Varnok Editor").contains("hrad.vrk: soubor by byl větší"));
        QVERIFY(x->editorRunning());
        QCOMPARE(bytesOf(levels.filePath("hrad.vrk")), levelFile(edited, true));
    }

    // Ctrl+Shift+O and Ctrl+Shift+S with the real file dialog, a path typed into it: the opened
    // file is what Ctrl+S writes and the title names.
    void openAndSaveOtherFilesInTheFileDialog() {
        prepareFolder(folder->path(), levelFile(heroOnly));
        QTemporaryDir others(QDir::tempPath() + "/varnok-levels-XXXXXX");
        const Grid castle = {{{7, 13}, 135}, {{12, 12}, 26}};
        prepareFolder(others.path(), levelFile(castle), "castle.vrk");
        QVERIFY(openEditor());

        x->keyInWindow("ctrl+shift+o");
        QVERIFY(x->closeBox("Otevřít level", others.filePath("castle.vrk")));
        QVERIFY(x->mainWindowTitled("VARNOK LEVEL EDITOR — castle.vrk"));
        x->clickInWindow({entry(4), cell(5, 5)});  // Bedna
        x->keyInWindow("ctrl+s");
        QVERIFY(x->closeBox("Uložit přes starý"));
        const QByteArray saved = waitForFile(others.filePath("castle.vrk"), levelFile(castle));
        QCOMPARE(std::pair(savedCell(saved, 5, 5), savedCell(saved, 12, 12)), std::pair(25, 26));

        x->keyInWindow("ctrl+shift+s");
        QVERIFY(x->closeBox("Uložit level jako", others.filePath("cellar")));
        QCOMPARE(waitForFile(others.filePath("cellar.VRK")), saved);
        QVERIFY(x->mainWindowTitled("VARNOK LEVEL EDITOR — cellar.VRK"));
        QVERIFY(x->editorRunning());
    }

    // The editor runs with no locale at all (see X11Session): its Czech texts are whole.
    void windowShowsItsColoursAndEveryPaletteEntry() {
        prepareFolder(folder->path());
        QVERIFY(x->startEditor(folder->path()));  // a new 20 x 20 level
        QVERIFY(x->messageText("Nápověda").startsWith("Nacházíte se v Editoru uživatelského"));
        QVERIFY(x->closeBox("Nápověda"));
        x->resizeEditor(1500, 2300);
        const QImage screen = x->screenshot().copy({x->clientOrigin(), QSize(1500, 2300)});
        QCOMPARE(screen.pixel(5, 300), qRgb(192, 192, 192));    // the window
        QCOMPARE(screen.pixel(1440, 100), qRgb(0, 0, 64));      // the viewport beside the map
        QCOMPARE(screen.pixel(70, 77), qRgb(184, 221, 239));    // the minimap's floor
        QCOMPARE(screen.pixel(105, 300), qRgb(180, 205, 228));  // the palette strip
        const int codes[] = {0,   1, 23, 24, 25, 26, 134, 27, 28, 29,  124, 125, 126,
                             127, 2, 3,  4,  5,  6,  7,   8,  9,  135, 136, 137, 138};
        for (int place = 0; place < 26; ++place) {
            const QImage picture(QStringLiteral(":/palette/%1.bmp").arg(codes[place]));
            const QRgb centre = picture.isNull() ? 0 : picture.pixel(picture.rect().center());
            bool seen = false;  // somewhere in the entry's 65 x 65 picture
            for (int y = -24; y <= 40 && !seen; ++y)
                for (int x2 = -32; x2 <= 32 && !seen; ++x2)
                    seen = distance(screen.pixel(entry(place) + QPoint(x2, y)), centre) < 12;
            QVERIFY2(seen, qPrintable(QStringLiteral("entry %1").arg(codes[place])));
        }
    }

    // The wall tool held in the map view's bottom-right corner: the pointer wobbles by a pixel,
    // each move lands on a new cell of a staircase and scrolls the map a step right and down.
    void edgeScrollingPaintsAStaircaseInTheRealProgram() {
        constexpr int side = 60;
        QVERIFY(openLevel(levelFile(heroOnly, false, side)));
        x->resizeEditor(910, 1115);  // a 640 x 1088 map view from (262, 19)
        const QPoint at = x->clientOrigin() + QPoint(262 + 624, 19 + 1040);  // cell (9, 16)
        const auto moveTo = [](QPoint p) {
            return X11Session::moveTo(p) + QStringList{"sleep", "0.1"};
        };
        QStringList stroke = moveTo(at) + QStringList{"mousedown", "1"};
        for (int move = 1; move <= 8; ++move) stroke += moveTo(at + QPoint(move % 2, 0));
        x->xdotool(stroke + QStringList{"mouseup", "1"});
        x->resizeEditor(896, 1150);
        QVERIFY(save());

        // The press's cell (9, 16), then a cell right or down at each move, to (13, 20).
        const auto expected = [](int x, int y) {
            const int move = 2 * (y - 16) + (x - y + 7);
            return (x - y == -7 || x - y == -6) && move >= 0 && move <= 8 ? Wall : 0;
        };
        QCOMPARE(savedWrongly(side, expected), QString());
    }

    // A 60 x 60 level zoomed out to 1/4 with Ctrl+wheel round cell (3, 3): a wall stroke, a
    // right-button drag, a click on the minimap that paints; Ctrl+0 back to full size, saved.
    void editingZoomedOutInTheRealProgram() {
        constexpr int side = 60;
        QVERIFY(openLevel(levelFile(heroOnly, false, side)));
        // The shrunk minimap's column is 240 wide: the map starts at (262, 19).
        const QPoint at = x->clientOrigin() + QPoint(262 + 64 * 3 + 32, 19 + 64 * 3 + 32);
        const auto moveTo = X11Session::moveTo;
        x->xdotool(moveTo(at) +
                   QStringList{"keydown", "ctrl", "click", "5", "click", "5", "keyup", "ctrl"});
        // Cell (3, 3) stays under the pointer; cells are 16 pixels now.
        const auto zoomedCell = [&](int column, int row) {
            return at + QPoint(16 * (column - 3), 16 * (row - 3));
        };
        x->drag(zoomedCell(4, 4), zoomedCell(8, 4));
        x->xdotool(moveTo(zoomedCell(12, 12)) + QStringList{"mousedown", "3"});
        x->xdotool(moveTo(zoomedCell(12, 12) + QPoint(40, 24)) + QStringList{"mouseup", "3"});
        // The minimap shows 4 pixels a cell: (10, 10) lies at 40 pixels across and down.
        x->clickInWindow({{10 + 4 * 10 + 1, 17 + 4 * 10 + 1}});
        x->key("ctrl+0");
        QVERIFY(save());

        const auto expected = [](int x, int y) {
            return (y == 4 && x >= 4 && x <= 8) || (x == 10 && y == 10) ? Wall : 0;
        };
        QCOMPARE(savedWrongly(side, expected), QString());
    }

    void aLargeNewLevelIsEditedAndSavedInTheDesignWindow() {
        prepareFolder(folder->path());
        QVERIFY(x->startEditor(folder->path()) && x->closeBox("Nápověda"));
        const int menuTop = 641 - 169 - 10;  // the window keeps its design size, 896 x 641
        // Wheel notches down (xdotool's --sync waits for a real move); sideways with Shift held.
        auto wheel = [&](QPoint at, const char* notches, bool sideways = false) {
            x->xdotool(X11Session::moveTo(x->clientOrigin() + at) +
                       QStringList{sideways ? "keydown" : "keyup", "shift", "click", "--repeat",
                                   notches, "5", "keyup", "shift"});
        };
        for (QPoint field : {QPoint(10 + 24, menuTop + 34), QPoint(10 + 64, menuTop + 34)}) {
            x->clickInWindow({field});
            x->xdotool({"key", "ctrl+a", "3", "0", "0"});
        }
        x->clickInWindow({{10 + 44, menuTop + 64}});  // Nový: 300 x 300
        wheel({130, 267 + 100}, "21");  // the hero's entry (place 22) 88 below the palette's top
        x->clickInWindow({{10 + 40, 267 + 88 + 24}});
        wheel({400, 300}, "2");  // the map two cells up and one to the left
        wheel({500, 300}, "1", true);
        x->clickInWindow({{262 + 64 * 3 + 32, 19 + 64 * 3 + 32}});  // cell (4, 5)
        QVERIFY(save({10 + 44, menuTop + 144}));

        // Three lines of header, then 314 lines of 314 cells: the hero alone, at (4, 5).
        const QByteArray saved = waitForFile(level());
        const QByteArray header = "1\r\n 314 \r\n 314 \r\n";
        QVERIFY(saved.startsWith(header));
        QCOMPARE(saved.size(), header.size() + 314 * 316);
        QCOMPARE(saved.count(char(48 + 135)), 1);
        QCOMPARE(saved.indexOf(char(48 + 135)), header.size() + (7 + 5) * 316 + 7 + 4);
    }

    // A T of walls selected with Shift and the right button, copied, carried to (10, 10) and
    // laid with a click; the selection cut, another one deleted; saved, and after each Ctrl+Z
    // saved again. Each file is what the level document makes of the same edits.
    void blocksInTheRealProgram() {
        QVERIFY(openLevel());  // the wall tool is selected
        const QPoint client = x->clientOrigin();
        const auto at = [&](QPoint place) { return X11Session::moveTo(client + place); };
        const auto select = [&](QPoint from, QPoint to) {
            x->xdotool(QStringList{"keydown", "shift"} + at(from) + QStringList{"mousedown", "3"} +
                       at(to) + QStringList{"mouseup", "3", "keyup", "shift"});
        };
        x->clickInWindow({cell(4, 4), cell(5, 4), cell(6, 4), cell(5, 5)});
        select(cell(4, 4), cell(6, 5));
        x->key("ctrl+c");
        x->key("ctrl+v");
        x->clickInWindow({cell(10, 10)});
        x->key("ctrl+x");
        select(cell(10, 10), cell(11, 10));
        x->key("Delete");

        // The same edits on the model, from the same file, with the same walls drawn.
        QTemporaryDir modelFolder;
        LevelDocument model{QDir(modelFolder.path())};
        QVERIFY(writeFile(model.levelFile(), levelFile(heroOnly)) && model.open().ok());
        for (const QPoint wall : {QPoint(4, 4), QPoint(5, 4), QPoint(6, 4), QPoint(5, 5)})
            model.applyTool(wall.x(), wall.y(), 1);
        model.placeBlock(model.copyBlock(QRect(4, 4, 3, 2)), QPoint(10, 10));
        model.clearCells(QRect(4, 4, 3, 2));
        model.clearCells(QRect(10, 10, 2, 1));

        QVERIFY(save());
        const QByteArray edited = waitForFile(level(), levelFile(heroOnly));
        QCOMPARE(edited, encodeLevelFile(model.level()));
        // Three Ctrl+Z take back the delete, the cut and the paste: the painted T is saved.
        for (int step = 0; step < 3; ++step) {
            x->keyInWindow("ctrl+z");
            model.undo();
        }
        QVERIFY(save());
        QCOMPARE(waitForFile(level(), edited), encodeLevelFile(model.level()));
    }

    // A path the editor cannot use; the editor killed and started again on the same folder;
    // two editors on one level file.
    void startsThatFailOrFindAnotherEditorsWork() {
        // Started without a terminal (its standard error is no terminal here), as from the
        // desktop menu, the editor shows why it cannot use its path in a box, then ends with 1.
        QVERIFY(x->launchEditor(folder->path(), {"nikde/hrad.vrk"}));
        QVERIFY(x->messageText("Varnok Editor").contains("/nikde neexistuje."));
        QVERIFY(x->closeBox("Varnok Editor"));
        QCOMPARE(x->editorExitCode(), 1);

        QVERIFY(openLevel());
        paintAndKill();
        QCOMPARE(copies().size(), 1);

        // No: the file's level stays, the copy goes to discarded/.
        QVERIFY(x->startEditor(folder->path()));
        QVERIFY(!x->boxShown(Recover));  // the help box comes first
        QVERIFY(x->closeBox("Nápověda"));
        QVERIFY(x->messageText(Recover).startsWith(
            "Editor nebyl řádně ukončen. Obnovit neuložené změny levelu level99.VRK z "));
        x->key("Escape");
        QVERIFY(X11Session::waitUntil(5000, [&] { return !x->boxShown(Recover); }));
        QCOMPARE(copies("discarded"), QStringList{copies("discarded").value(0)});
        QVERIFY(copies().isEmpty());
        QCOMPARE(savedCell(savedBytes(), 5, 5), 0);

        // Yes: the painted level, exactly as copied, as one step that Ctrl+Z takes back.
        paintAndKill();
        const QByteArray painted = bytesOf(recovery() + copies().value(0));
        QCOMPARE(savedCell(painted, 5, 5), 25);  // the crate
        QVERIFY(openEditor());
        QVERIFY(x->closeBox(Recover));
        QCOMPARE(savedBytes(), painted);
        x->keyInWindow("ctrl+z");
        QCOMPARE(savedCell(savedBytes(), 5, 5), 0);

        // Closed normally, the editor leaves no copy and asks nothing at the next start.
        x->clickInWindow({entry(4), cell(6, 6)});
        QVERIFY(X11Session::waitUntil(3000, [&] { return !copies().isEmpty(); }));
        QVERIFY(x->closeEditorWindow());
        QCOMPARE(x->editorExitCode(), 0);
        QVERIFY(copies().isEmpty());
        startsWithoutAsking(Recover);
        const qint64 first = x->editorId();

        // A second editor on the same file asks after its help box; No ends it.
        QProcess second;
        QVERIFY(x->launchEditor(folder->path(), {}, &second));
        QVERIFY(x->closeBox("Nápověda"));
        QCOMPARE(x->messageText("Level je otevřený"),
                 QStringLiteral("Level level99.VRK už je otevřený v jiném okně editoru (proces "
                                "%1). Otevřít ho přesto?")
                     .arg(first));
        x->key("Escape");
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitCode(), 0);
        QVERIFY(x->editorRunning());

        // The first one killed, its lock is taken over without a word.
        QCOMPARE(::kill(pid_t(first), SIGKILL), 0);
        QCOMPARE(x->editorExitCode(), -1);
        startsWithoutAsking("Level je otevřený");
    }
};

QTEST_GUILESS_MAIN(EndToEndTest)
#include "test_end_to_end.moc"
