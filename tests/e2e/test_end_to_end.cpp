#include "frame_prediction.h"
#include "x11_session.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr int Side = 20;
using Grid = std::map<std::pair<int, int>, int>;

// A level file as the game reads it, written out here without the editor's code.
QByteArray levelFile(const Grid& cells) {
    const QByteArray border(Side + 14, '0');
    QByteArray bytes = "1\r\n 34 \r\n 34 \r\n";
    for (int i = 0; i < 7; ++i) bytes += border + "\r\n";
    for (int y = 0; y < Side; ++y) {
        QByteArray row(Side, '0');
        for (int x = 0; x < Side; ++x)
            if (cells.count({x, y})) row[x] = char(48 + cells.at({x, y}));
        bytes += "0000000" + row + "0000000\r\n";
    }
    for (int i = 0; i < 7; ++i) bytes += border + "\r\n";
    return bytes;
}

QByteArray waitForFile(const QString& path, const QByteArray& unlike) {
    QDeadlineTimer deadline(10000);
    QByteArray bytes;
    while (!deadline.hasExpired()) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly) && (bytes = file.readAll()) != unlike) return bytes;
        QThread::msleep(100);
    }
    return bytes;
}

int distance(QRgb a, QRgb b) {
    return qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
}

}  // namespace

class EndToEndTest : public QObject {
    Q_OBJECT

    void prepareFolder(const QDir& dir, const QByteArray& level,
                       const QString& name = "level99.VRK") {
        // A copy keeps its source's mode, which the builder's umask chose.
        QFile::copy(VARNOK_SHEET, dir.filePath("EditPic.jpg"));
        QFile::setPermissions(dir.filePath("EditPic.jpg"),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                  QFileDevice::ReadGroup | QFileDevice::ReadOther);
        if (level.isEmpty()) return;
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(level);
    }
    void dismissHelp(X11Session& x) {
        QVERIFY(!x.waitForWindow("Nápověda").isEmpty());
        x.key("Return");
        QVERIFY(x.windowGone("Nápověda"));
    }

  private slots:
    void initTestCase() { X11Session::prepareProcess(); }

    void paintAndSaveALevel() {
        QTemporaryDir folder;
        X11Session x;
        QVERIFY(x.serverUp());
        Grid start;
        start[{12, 12}] = 26;  // a flowerpot the file already holds
        // A level file of its own name is named on the command line; the editor starts
        // somewhere else.
        const QDir levels(QDir(folder.path()).filePath("moje levely"));
        QTemporaryDir elsewhere;
        QVERIFY(levels.mkpath("."));
        prepareFolder(levels, levelFile(start), "hrad.vrk");
        QVERIFY(x.startEditor(VARNOK_EDITOR, elsewhere.path(), X11Session::User::Same,
                              {levels.filePath("hrad.vrk")}));
        dismissHelp(x);
        x.resizeEditor(896, 1150);
        const QPoint client = x.clientOrigin();
        // The palette strip's entries, 72 pixels apart; the map inside the viewport border.
        auto entry = [&](int place, int scrolled = 0) {
            return client + QPoint(10 + 40, 147 + 8 + 72 * place + 24 - scrolled);
        };
        auto cell = [&](int column, int row) {
            return client + QPoint(142 + 64 * column + 32, 19 + 64 * row + 32);
        };
        x.click(entry(4));  // Bedna
        x.click(cell(5, 5));
        x.click(entry(1));  // Zeď
        x.click(cell(8, 4));
        // Drag the strip up by its background to reach the rooms and the hero.
        x.drag(client + QPoint(100, 900), client + QPoint(100, 100));
        x.drag(client + QPoint(100, 900), client + QPoint(100, 700));
        x.click(entry(14, 1000));  // Místnost A
        x.click(cell(4, 8));
        x.click(entry(22, 1000));  // Hrdina
        x.click(cell(7, 13));

        x.click(client + QPoint(10 + 8 + 36, 1150 - 179 + 128 + 16));  // Uložit
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");  // Ano is the default

        Grid expected = predictedFrame(Side, Side);
        expected[{12, 12}] = 26;
        expected[{5, 5}] = 25;
        expected[{8, 4}] = 14;
        const int roomA[4][3] = {{30, 31, 32}, {40, 41, 42}, {50, 51, 52}, {60, 114, 62}};
        for (int dy = 0; dy < 4; ++dy)
            for (int dx = 0; dx < 3; ++dx) expected[{4 + dx, 8 + dy}] = roomA[dy][dx];
        expected[{7, 13}] = 135;
        const QByteArray saved = waitForFile(levels.filePath("hrad.vrk"), levelFile(start));
        QCOMPARE(saved, levelFile(expected));
        QVERIFY(x.editorRunning());
        QVERIFY(QDir(elsewhere.path()).isEmpty());
        QVERIFY(!levels.exists("level99.VRK"));
    }

    void windowShowsItsColoursAndEveryPaletteEntry() {
        X11Session x;
        QTemporaryDir empty;
        prepareFolder(QDir(empty.path()), {});
        QVERIFY(x.startEditor(VARNOK_EDITOR, empty.path()));
        dismissHelp(x);  // no level file: a new 20 x 20 level
        x.resizeEditor(1500, 2300);
        const QPoint client = x.clientOrigin();
        const QImage screen = x.screenshot();
        auto at = [&](int cx, int cy) { return screen.pixel(client + QPoint(cx, cy)); };
        QCOMPARE(at(5, 300), qRgb(192, 192, 192));    // the window
        QCOMPARE(at(1440, 100), qRgb(0, 0, 64));      // the viewport beside the map
        QCOMPARE(at(70, 77), qRgb(184, 221, 239));    // the minimap's floor
        QCOMPARE(at(105, 300), qRgb(180, 205, 228));  // the palette strip
        const int codes[] = {0,   1, 23, 24, 25, 26, 134, 27, 28, 29,  124, 125, 126,
                             127, 2, 3,  4,  5,  6,  7,   8,  9,  135, 136, 137, 138};
        for (int place = 0; place < 26; ++place) {
            const QImage picture(QStringLiteral(":/palette/%1.bmp").arg(codes[place]));
            const QRgb centre = picture.isNull() ? 0 : picture.pixel(picture.rect().center());
            bool seen = false;
            for (int y = 0; y < 65 && !seen; ++y)
                for (int x2 = 0; x2 < 65 && !seen; ++x2)
                    seen = distance(at(10 + 8 + x2, 147 + 8 + 72 * place + y), centre) < 12;
            QVERIFY2(seen, qPrintable(QStringLiteral("entry %1").arg(codes[place])));
        }
    }

    void aReadOnlyFolderKeepsItsLevel() {
        QTemporaryDir readOnly, programs;
        Grid start;
        start[{7, 13}] = 135;
        prepareFolder(QDir(readOnly.path()), levelFile(start));
        const QFileDevice::Permissions readAndEnter =
            QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup |
            QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
        QVERIFY(QFile::setPermissions(readOnly.path(), readAndEnter));
        // A copy of the editor that an ordinary user may run, wherever the build lies.
        const QString program = QDir(programs.path()).filePath("varnok-editor");
        QVERIFY(QFile::copy(VARNOK_EDITOR, program));
        QVERIFY(QFile::setPermissions(program, readAndEnter));
        QVERIFY(QFile::setPermissions(programs.path(), readAndEnter | QFileDevice::WriteOwner));

        X11Session x;
        QVERIFY(x.startEditor(program, readOnly.path(), X11Session::User::Ordinary));
        dismissHelp(x);
        x.resizeEditor(896, 1150);
        x.click(x.clientOrigin() + QPoint(10 + 8 + 36, 1150 - 179 + 128 + 16));  // Uložit
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");
        QVERIFY(x.messageText("Varnok Editor")
                    .contains("Level se nepodařilo uložit do souboru level99.VRK"));
        x.key("Return");
        QVERIFY(x.windowGone("Varnok Editor"));
        QVERIFY(x.editorRunning());
        QFile saved(QDir(readOnly.path()).filePath("level99.VRK"));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), levelFile(start));
        QCOMPARE(QDir(readOnly.path()).entryList(QDir::Files).size(), 2);  // no leftovers
    }

    void aFileSizeLimitFailsTheSaveOnly() {
        QTemporaryDir limited;
        Grid start;
        start[{7, 13}] = 135;
        prepareFolder(QDir(limited.path()), levelFile(start));
        X11Session x;
        // The editor inherits a 1 kB file-size limit, under its 1.3 kB level.
        rlimit unlimited{};
        getrlimit(RLIMIT_FSIZE, &unlimited);
        const rlimit kilobyte{1024, unlimited.rlim_max};
        setrlimit(RLIMIT_FSIZE, &kilobyte);
        const bool started = x.startEditor(VARNOK_EDITOR, limited.path());
        setrlimit(RLIMIT_FSIZE, &unlimited);
        QVERIFY(started);
        dismissHelp(x);
        x.resizeEditor(896, 1150);
        x.click(x.clientOrigin() + QPoint(10 + 8 + 36, 1150 - 179 + 128 + 16));  // Uložit
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");
        QVERIFY(x.messageText("Varnok Editor").contains("level99.VRK: soubor by byl větší"));
        QVERIFY(x.editorRunning());
        QCOMPARE(waitForFile(limited.filePath("level99.VRK"), {}), levelFile(start));
    }

    void aFolderNamedInCzechWithBlanks() {
        // The editor runs with no locale at all (see X11Session).
        QTemporaryDir czech(QDir::tempPath() + "/Úrovně hry XXXXXX");
        QVERIFY(czech.isValid());
        Grid start;
        start[{7, 13}] = 135;  // the hero, so that Save writes
        start[{12, 12}] = 26;
        prepareFolder(QDir(czech.path()), levelFile(start));
        X11Session x;
        QVERIFY(x.startEditor(VARNOK_EDITOR, czech.path()));
        QVERIFY(x.messageText("Nápověda").startsWith("Nacházíte se v Editoru uživatelského"));
        x.key("Return");
        QVERIFY(x.windowGone("Nápověda"));
        x.resizeEditor(896, 1150);
        x.click(x.clientOrigin() + QPoint(10 + 8 + 36, 1150 - 179 + 128 + 16));  // Uložit
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");

        Grid expected = predictedFrame(Side, Side);
        expected[{7, 13}] = 135;
        expected[{12, 12}] = 26;
        const QString path = QDir(czech.path()).filePath("level99.VRK");
        QCOMPARE(waitForFile(path, levelFile(start)), levelFile(expected));
        QCOMPARE(QDir(czech.path()).entryList(QDir::Files).size(), 2);  // nothing beside it
        QVERIFY(x.editorRunning());
    }

    void aMalformedLevelIsToldAndTheEditorGoesOn() {
        QByteArray longRow = levelFile({});
        longRow.insert(15 + (7 + 3) * 36 + 20, '0');  // after the header and 10 lines: row 3
        const QByteArray header = QByteArray("1\r\n 99999 \r\n 34 \r\n") + levelFile({}).mid(16);
        // No bytes: a FIFO, which would block a reader that opened it.
        const std::pair<QByteArray, const char*> files[] = {
            {longRow, "NEODPOVIDA DELKA RADKU 3 V level99.VRK!"},
            {header, "Soubor level99.VRK: rozměr levelu na řádku 2 je mimo povolený rozsah"},
            {{}, "Soubor level99.VRK nelze otevřít: není to obyčejný soubor"}};
        for (const auto& [bytes, message] : files) {
            QTemporaryDir malformed;
            prepareFolder(QDir(malformed.path()), bytes);
            if (bytes.isEmpty())
                QCOMPARE(mkfifo(QFile::encodeName(malformed.filePath("level99.VRK")), 0600), 0);
            X11Session x;
            QVERIFY(x.startEditor(VARNOK_EDITOR, malformed.path()));
            const QString shown = x.messageText("Varnok Editor");
            QVERIFY2(shown.contains(message), qPrintable(shown));
            x.key("Return");
            dismissHelp(x);  // start-up goes on to its end
            QVERIFY(x.editorRunning());
        }
    }

    // Two crates, Ctrl+Z twice, Ctrl+Shift+Z, Ctrl+S: the file holds the first crate only.
    void undoAndRedoKeysInTheRealProgram() {
        QTemporaryDir folder;
        Grid start;
        start[{7, 13}] = 135;  // a hero, so that Save writes
        prepareFolder(QDir(folder.path()), levelFile(start));
        X11Session x;
        QVERIFY(x.startEditor(VARNOK_EDITOR, folder.path()));
        dismissHelp(x);
        x.resizeEditor(896, 1150);
        const QPoint client = x.clientOrigin();
        x.click(client + QPoint(10 + 40, 147 + 8 + 72 * 4 + 24));  // Bedna
        x.click(client + QPoint(142 + 64 * 5 + 32, 19 + 64 * 5 + 32));
        x.click(client + QPoint(142 + 64 * 6 + 32, 19 + 64 * 5 + 32));
        for (const char* keys : {"ctrl+z", "ctrl+z", "ctrl+shift+z", "ctrl+s"}) x.key(keys);
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");
        Grid expected = predictedFrame(Side, Side);
        expected[{7, 13}] = 135;
        expected[{5, 5}] = 25;
        const QString path = QDir(folder.path()).filePath("level99.VRK");
        QCOMPARE(waitForFile(path, levelFile(start)), levelFile(expected));
    }

    void aLargeNewLevelIsEditedAndSavedInTheDesignWindow() {
        QTemporaryDir large;
        prepareFolder(QDir(large.path()), {});
        X11Session x;
        QVERIFY(x.startEditor(VARNOK_EDITOR, large.path()));
        dismissHelp(x);  // the window keeps its design size, 896 x 641
        const QPoint client = x.clientOrigin();
        const int menuTop = 641 - 169 - 10;
        auto wheelDown = [&](QPoint at, const char* notches, bool sideways = false) {
            at += client;
            QStringList command{"mousemove", "--sync", QString::number(at.x()),
                                QString::number(at.y())};
            if (sideways)
                command << "keydown"
                        << "shift";
            x.xdotool(command << "click"
                              << "--repeat" << notches << "5"
                              << "keyup"
                              << "shift");
        };
        for (QPoint field : {QPoint(10 + 24, menuTop + 34), QPoint(10 + 64, menuTop + 34)}) {
            x.click(client + field);
            x.xdotool({"key", "ctrl+a", "3", "0", "0"});
        }
        x.click(client + QPoint(10 + 44, menuTop + 64));  // Nový: 300 x 300
        // 21 notches bring the hero's entry (place 22) to 88 below the palette's top.
        wheelDown({130, 267 + 100}, "21");
        x.click(client + QPoint(10 + 40, 267 + 88 + 24));
        // The map two cells up and one to the left (xdotool's --sync waits for a real move).
        wheelDown({400, 300}, "2");
        wheelDown({500, 300}, "1", true);
        x.click(client + QPoint(262 + 64 * 3 + 32, 19 + 64 * 5 + 32 - 128));  // cell (4, 5)
        x.click(client + QPoint(10 + 44, menuTop + 144));                     // Uložit
        QVERIFY(!x.waitForWindow("Uložit přes starý").isEmpty());
        x.key("Return");

        // Three lines of header, then 314 lines of 314 cells: the hero alone, at (4, 5).
        const QByteArray saved = waitForFile(QDir(large.path()).filePath("level99.VRK"), {});
        const QByteArray header = "1\r\n 314 \r\n 314 \r\n";
        QVERIFY(saved.startsWith(header));
        QCOMPARE(saved.size(), header.size() + 314 * 316);
        QCOMPARE(saved.count(char(48 + 135)), 1);
        QCOMPARE(saved.indexOf(char(48 + 135)), header.size() + (7 + 5) * 316 + 7 + 4);
    }
};

QTEST_GUILESS_MAIN(EndToEndTest)
#include "test_end_to_end.moc"
