#include "frame_prediction.h"
#include "level.h"
#include "level_file.h"
#include "tile_codes.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <optional>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using Hero = std::optional<QPoint>;

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// A level whose every cell, the margin included, holds `code`.
Level filledLevel(int width, int height, int code) {
    Level level;
    level.reset(width, height);
    for (int y = 0; y <= height; ++y) std::fill_n(level.row(y), width + 1, qint16(code));
    return level;
}

// Reads into a level that held other cells and a hero before: none of them may show through.
LevelReadResult readBytes(Level& level, QByteArray bytes) {
    level = filledLevel(30, 30, 25);
    level.setHero(QPoint(9, 9));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readLevelFrom(level, buffer, LevelFileName);
}

// A level file of `columns` x `rows` whose grid lines are given, each without its border.
QByteArray levelFile(int columns, int rows, const QList<QByteArray>& gridLines) {
    QByteArray bytes = "1\r\n " + QByteArray::number(columns + 14) + " \r\n " +
                       QByteArray::number(rows + 14) + " \r\n";
    bytes += (QByteArray(columns + 14, '0') + "\r\n").repeated(7);
    for (const QByteArray& line : gridLines) bytes += "0000000" + line + "0000000\r\n";
    return bytes;
}

}  // namespace

class LevelModelTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    QString path() const { return dir.filePath(LevelFileName); }

  private slots:
    void writesTheExactBytesAndReadsThemBack() {
        Level level, back;
        level.reset(20, 20);
        level.setCell(3, 0, 17);
        level.setCell(19, 19, HeroCode);
        QVERIFY(writeLevelFile(level, path()).ok());
        QList<QByteArray> lines(20, QByteArray(20, '0'));
        lines[0][3] = 'A';
        lines[19][19] = char(183);
        QCOMPARE(readAll(path()),
                 levelFile(20, 20, lines) + (QByteArray(34, '0') + "\r\n").repeated(7));
        const LevelReadResult read = readLevelFile(back, path());
        QVERIFY(read.ok() && read.warning.isEmpty());
        QCOMPARE(back.cell(3, 0), 17);
        QCOMPARE(back.hero(), Hero(QPoint(19, 19)));
    }

    void rowLengthsDecideWhereTheGridEnds_data() {
        QTest::addColumn<QByteArray>("bytes");  // a 4 x 3 level of walls
        QTest::addColumn<int>("rowsRead");
        QTest::addColumn<bool>("warned");  // about the first row not read
        const QByteArray whole = levelFile(4, 3, {"1111", "1111", "1111"});
        QTest::newRow("all rows, no bottom border") << whole << 3 << false;
        QTest::newRow("no rows, no blanks") << QByteArray("1\r\n18\r\n17\r\n") << 0 << false;
        QTest::newRow("short first row") << levelFile(4, 3, {"111", "1111", "1111"}) << 0 << true;
        QTest::newRow("long second row") << levelFile(4, 3, {"1111", "11111", "1111"}) << 1 << true;
        QTest::newRow("cut off in the last row") << whole.chopped(5) << 2 << true;
    }
    void rowLengthsDecideWhereTheGridEnds() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, rowsRead);
        QFETCH(bool, warned);
        Level level;
        const LevelReadResult read = readBytes(level, bytes);
        QVERIFY(read.ok());
        QCOMPARE(read.warning,
                 warned ? QString("NEODPOVIDA DELKA RADKU %1 V level99.VRK!").arg(rowsRead) : "");
        QCOMPARE(QSize(level.width(), level.height()), QSize(4, 3));
        for (int y = 0; y <= 3; ++y)
            for (int x = 0; x <= 4; ++x)
                QCOMPARE(std::pair(QPoint(x, y), int(level.cell(x, y))),
                         std::pair(QPoint(x, y), x < 4 && y < rowsRead ? 1 : 0));
        QCOMPARE(level.hero(), Hero());
    }

    void readsOddBytesAndFreeSizeLines() {
        // The last hero in reading order wins; a lone LF is a byte of its line; bytes below "0"
        // give negative codes.
        Level level;
        QVERIFY(readBytes(level, levelFile(4, 2, {"\2671/A", "\267\n\2673"})).warning.isEmpty());
        const int codes[] = {HeroCode, 1, -1, 17, HeroCode, '\n' - 48, HeroCode, 3};
        for (int i = 0; i < 8; ++i) QCOMPARE(level.cell(i % 4, i / 4), codes[i]);
        QCOMPARE(level.hero(), Hero(QPoint(2, 1)));
        // Sizes without blanks, with a sign and leading zeros; the largest side.
        QVERIFY(readBytes(level, "1\r\n24\r\n+01014\r\n").ok());
        QCOMPARE(QSize(level.width(), level.height()), QSize(10, MaxLevelSide));
    }

    void refusesABadHeaderAndKeepsTheLevel_data() {
        QTest::addColumn<QByteArray>("bytes");  // none: no file at all
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const QByteArray& bytes, const char* reason) {
            QTest::newRow(name) << bytes << QString(reason);
        };
        row("no file", QByteArray(), "nebyl nalezen");
        row("empty", "", "prázdný");
        row("two lines", "1\r\n 34 \r\n", "tři řádky");
        row("letters", "1\r\nabc\r\n 34 \r\n", "řádku 2 není celé číslo");
        row("two numbers", "1\r\n 34 \r\n 3 4\r\n", "řádku 3 není celé číslo");
        row("two signs", "1\r\n+-3\r\n 34 \r\n", "řádku 2 není celé číslo");
        row("a picture", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), "řádku 2 není celé");
        row("beyond 64 bits", "1\r\n 34 \r\n 99999999999999999999999 \r\n", "řádku 3 je mimo");
        row("below the border", "1\r\n 13 \r\n 34 \r\n", "řádku 2 je mimo");
        row("one too many", "1\r\n 34 \r\n 1015 \r\n", "řádku 3 je mimo");
        row("LF line ends", "1\n 34 \n 34 \n" + QByteArray(34, '0') + "\n", "konce řádků LF");
    }
    void refusesABadHeaderAndKeepsTheLevel() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        QFile::remove(path());
        if (!bytes.isNull()) writeAll(path(), bytes);
        Level level = filledLevel(5, 6, 25);
        level.setHero(QPoint(3, 0));
        const QByteArray kept = encodeLevelFile(level);
        const LevelReadResult read = readLevelFile(level, path());
        QVERIFY2(read.refusal.contains(reason) && read.refusal.contains("level99.VRK"),
                 qPrintable(read.refusal));
        QCOMPARE(read.missing, bytes.isNull());
        QCOMPARE(encodeLevelFile(level), kept);
        QCOMPARE(level.hero(), Hero(QPoint(3, 0)));
    }

    void aFailedSaveLeavesTheOldFile() {
        writeAll(path(), "old level");
        Level level;
        level.reset(20, 20);
        // A full disk: the file system takes the first kilobyte only.
        rlimit unlimited{};
        getrlimit(RLIMIT_FSIZE, &unlimited);
        signal(SIGXFSZ, SIG_IGN);
        const rlimit kilobyte{1024, unlimited.rlim_max};
        setrlimit(RLIMIT_FSIZE, &kilobyte);
        const LevelWriteResult diskFull = writeLevelFile(level, path());  // 1.3 kB
        setrlimit(RLIMIT_FSIZE, &unlimited);
        QVERIFY(diskFull.failure.contains("level99.VRK: soubor by byl větší"));
        QCOMPARE(readAll(path()), QByteArray("old level"));
        // A folder where the file should be.
        QVERIFY(QDir(dir.path()).mkdir("folder.VRK"));
        QVERIFY(writeLevelFile(level, dir.filePath("folder.VRK"))
                    .failure.endsWith("je to složka, ne soubor."));
        QVERIFY(QDir(dir.filePath("folder.VRK")).exists());
    }

    // A FIFO would block the open and a device never ends: both are refused before reading,
    // and an endless file is read no further than the largest level.
    void refusesWhatIsNoLevelFile() {
        QTemporaryDir special;
        const QString fifo = special.filePath("fifo.VRK"), zero = special.filePath("zero.VRK");
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        QVERIFY(QFile::link("/dev/zero", zero));
        QVERIFY(QDir(special.path()).mkdir("folder.VRK"));
        Level level;
        for (const QString& name : {fifo, zero})
            QVERIFY(readLevelFile(level, name)
                        .refusal.endsWith(
                            "není to obyčejný soubor (je to zařízení, roura nebo socket)."));
        QVERIFY(readLevelFile(level, special.filePath("folder.VRK"))
                    .refusal.endsWith("je to složka, ne soubor."));
        QByteArray endless(8 << 20, '0');
        QBuffer buffer(&endless);
        buffer.open(QIODevice::ReadOnly);
        QVERIFY(readLevelFrom(level, buffer, "x").refusal.contains("tři řádky"));
        QVERIFY(buffer.pos() < (2 << 20));
    }

    void wallTestStaysInsideTheLevel_data() {
        QTest::addColumn<QPoint>("cell");  // on a 30 x 20 level of walls, margin included
        QTest::addColumn<int>("code");     // put at the cell when it is on the grid
        QTest::addColumn<bool>("wall");
        QTest::newRow("column 0") << QPoint(0, 5) << 1 << false;
        QTest::newRow("row 0") << QPoint(5, 0) << 1 << false;
        QTest::newRow("left of the grid") << QPoint(-1, 5) << 1 << false;
        QTest::newRow("margin column") << QPoint(30, 5) << 1 << false;
        QTest::newRow("margin row") << QPoint(5, 20) << 1 << false;
        QTest::newRow("x beyond the height") << QPoint(25, 5) << 1 << true;
        QTest::newRow("y beyond the height") << QPoint(5, 25) << 1 << false;
        QTest::newRow("last piece") << QPoint(29, 19) << LastWallPiece << true;
        QTest::newRow("furniture") << QPoint(29, 19) << FirstFurniture << false;
        QTest::newRow("negative") << QPoint(29, 19) << -3 << false;
    }
    void wallTestStaysInsideTheLevel() {
        QFETCH(QPoint, cell);
        QFETCH(int, code);
        QFETCH(bool, wall);
        Level level = filledLevel(30, 20, 1);
        if (level.contains(cell.x(), cell.y())) level.setCell(cell.x(), cell.y(), qint16(code));
        QCOMPARE(isWallAt(level, cell.x(), cell.y()), wall);
    }

    void saveFindsAHeroInTheLevelProperOnly() {
        Level level = filledLevel(4, 3, 0);
        level.setCell(4, 2, HeroCode);  // the margin
        QVERIFY(!containsHero(level));
        level.setCell(3, 2, HeroCode);
        QVERIFY(containsHero(level));
        level.reset(4, 3);
        QVERIFY(!containsHero(level) && !level.hero());
    }

    void wallPiecesJoinTheirArms() {
        for (int key = 0; key < 16; ++key) {
            const std::string walls = {key & 8 ? '1' : '0', key & 4 ? '1' : '0',
                                       key & 2 ? '1' : '0', key & 1 ? '1' : '0'};
            QCOMPARE(std::pair(key, wallPieceFor(key)), std::pair(key, predictedWallPiece(walls)));
        }
        // Every look of a piece has the arms that give back its first look.
        for (int piece = FirstWallPiece; piece <= LastWallPiece; ++piece) {
            const int firstLook = piece < FirstVerticalPiece       ? FirstHorizontalPiece
                                  : piece < FirstVerticalPiece + 4 ? FirstVerticalPiece
                                                                   : piece;
            QCOMPARE(std::pair(piece, wallPieceFor(wallKey(armsOfPiece(piece)))),
                     std::pair(piece, firstLook));
        }
        for (int code : {FloorCode, FirstFurniture, -1}) QCOMPARE(wallKey(armsOfPiece(code)), 0);
    }

    void toolsKnowWhatTheyPaint_data() {
        QTest::addColumn<QList<int>>("codes");
        QTest::addColumn<ToolKind>("kind");  // None: not in the palette
        QTest::addColumn<QSize>("footprint");
        QTest::newRow("wall") << QList<int>{1} << ToolKind::Wall << QSize(1, 1);
        QTest::newRow("rooms A-D") << QList<int>{2, 3, 4, 5} << ToolKind::Room << QSize(3, 4);
        QTest::newRow("rooms E-H") << QList<int>{6, 7, 8, 9} << ToolKind::Room << QSize(4, 3);
        QTest::newRow("hero") << QList<int>{135} << ToolKind::Hero << QSize(1, 1);
        const QList<int> single = {0,   23,  24,  25,  26,  27,  28,  29,
                                   124, 125, 126, 127, 134, 136, 137, 138};
        QTest::newRow("one cell") << single << ToolKind::SingleCell << QSize(1, 1);
        const QList<int> none = {-1, 10, 22, 30, 123, 128, 133, 139};
        QTest::newRow("no tool") << none << ToolKind::None << QSize(1, 1);
    }
    void toolsKnowWhatTheyPaint() {
        QFETCH(QList<int>, codes);
        QFETCH(ToolKind, kind);
        QFETCH(QSize, footprint);
        const auto palette = paletteTools();
        QCOMPARE(palette.size(), 26u);  // so the rows name every tool it holds, once
        for (int code : codes) {
            const bool inPalette = std::any_of(palette.begin(), palette.end(),
                                               [&](const Tool& tool) { return tool.code == code; });
            QCOMPARE(std::tuple(code, toolKind(code), toolFootprint(code), inPalette),
                     std::tuple(code, kind, footprint, kind != ToolKind::None));
        }
    }
};

QTEST_GUILESS_MAIN(LevelModelTest)
#include "test_level_model.moc"
