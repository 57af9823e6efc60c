#include "file_bytes.h"
#include "file_names.h"
#include "frame_prediction.h"
#include "large_buffer.h"
#include "level.h"
#include "level_file.h"
#include "tile_codes.h"
#include "wall_pieces.h"

#include <QBuffer>
#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A level whose every cell, the margin included, holds `code`.
Level filledLevel(int width, int height, int code) {
    Level level;
    level.reset(width, height);
    for (int y = 0; y <= height; ++y) std::fill_n(level.row(y), width + 1, qint16(code));
    return level;
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
    void rowLengthsDecideWhereTheGridEndsAndBadHeadersAreRefused() {
        // A 4 x 3 level of walls: the rows read, whether the first row not read is warned about.
        const auto row = [](const char* name, QByteArray bytes, int rowsRead, bool warned) {
            // Read into a level that held other cells and a hero: none of them may show through.
            Level level = filledLevel(30, 30, 25);
            level.setHero(QPoint(9, 9));
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            const LevelReadResult read = readLevelFrom(level, buffer, LevelFileName);
            const QString warning =
                QString("NEODPOVIDA DELKA RADKU %1 V level99.VRK!").arg(rowsRead);
            QCOMPARE(
                std::tuple(name, read.warning, QSize(level.width(), level.height()), !level.hero()),
                std::tuple(name, warned ? warning : "", QSize(4, 3), true));
            for (int y = 0; y <= 3; ++y)
                for (int x = 0; x <= 4; ++x)
                    QCOMPARE(std::tuple(name, QPoint(x, y), int(level.cell(x, y))),
                             std::tuple(name, QPoint(x, y), x < 4 && y < rowsRead ? 1 : 0));
        };
        const QByteArray whole = levelFile(4, 3, {"1111", "1111", "1111"});
        row("all rows, no bottom border", whole, 3, false);
        row("no rows, sign, zeros", "1\r\n18\r\n+0017\r\n", 0, false);
        row("short first row", levelFile(4, 3, {"111", "1111", "1111"}), 0, true);
        row("long second row", levelFile(4, 3, {"1111", "11111", "1111"}), 1, true);
        row("cut off in the last row", whole.chopped(5), 2, true);

        // A header it cannot use is refused, the level read into kept whole.
        const auto refused = [&](const char* name, const QByteArray& bytes, const char* reason) {
            QFile::remove(path());
            if (!bytes.isNull()) QVERIFY(writeFile(path(), bytes));  // none: no file at all
            Level level = filledLevel(5, 6, 25);
            level.setHero(QPoint(3, 0));
            const QByteArray kept = encodeLevelFile(level);
            const LevelReadResult read = readLevelFile(level, path());
            QVERIFY2(read.refusal.contains(reason) && read.refusal.contains("level99.VRK"),
                     qPrintable(name + QString(": ") + read.refusal));
            QCOMPARE(std::tuple(name, read.missing, encodeLevelFile(level) == kept, level.hero()),
                     std::tuple(name, bytes.isNull(), true, std::optional(QPoint(3, 0))));
        };
        refused("no file", QByteArray(), "nebyl nalezen");
        refused("empty", "", "prázdný");
        refused("two numbers", "1\r\n 34 \r\n 3 4\r\n", "řádku 3 není celé číslo");
        refused("two signs", "1\r\n+-3\r\n 34 \r\n", "řádku 2 není celé číslo");
        refused("beyond 64 bits", "1\r\n 34 \r\n 99999999999999999999999 \r\n", "řádku 3 je mimo");
        refused("below the border", "1\r\n 13 \r\n 34 \r\n", "řádku 2 je mimo");
        refused("one too many", "1\r\n 34 \r\n 1015 \r\n", "řádku 3 je mimo");
        refused("LF line ends", "1\n 34 \n 34 \n" + QByteArray(34, '0') + "\n", "konce řádků LF");
    }

    // A FIFO would block the open and a device never ends: both are refused before reading,
    // and an endless file is read no further than the largest level. None of them, nor a
    // folder, is saved over; a link to a plain file is saved through and stays a link.
    void refusesWhatIsNoLevelFile() {
        QTemporaryDir special;
        const QString fifo = special.filePath("fifo.VRK"), zero = special.filePath("zero.VRK");
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        QVERIFY(QFile::link("/dev/zero", zero));
        Level level;
        for (const QString& name : {fifo, zero})
            QVERIFY(readLevelFile(level, name)
                        .refusal.endsWith(
                            "není to obyčejný soubor (je to zařízení, roura nebo socket)."));
        const QString folder = special.filePath("folder.VRK");
        QVERIFY(QDir(special.path()).mkdir("folder.VRK"));
        QVERIFY(readLevelFile(level, folder).refusal.endsWith("je to složka, ne soubor."));
        QVERIFY(writeLevelFile(level, folder).failure.endsWith("je to složka, ne soubor."));
        // Saved over through a link too, which a save would replace with the file.
        const QString linkToFifo = special.filePath("to-fifo.VRK");
        QVERIFY(QFile::link(fifo, linkToFifo));
        for (const QString& name : {fifo, linkToFifo}) {
            const QString failure = writeLevelFile(level, name).failure;
            QVERIFY2(failure.contains(name) && failure.contains("není to obyčejný soubor, ale"),
                     qPrintable(failure));
        }
        struct stat node {};
        QVERIFY(!stat(QFile::encodeName(fifo), &node) && S_ISFIFO(node.st_mode));
        QVERIFY(QFileInfo(linkToFifo).isSymLink());
        const QString plain = special.filePath("plain.VRK"), link = special.filePath("link.VRK");
        QVERIFY(writeFile(plain, "old"));
        QVERIFY(QFile::link(plain, link));
        level.reset(3, 3);
        QVERIFY(writeLevelFile(level, link).ok());
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(bytesOf(plain), encodeLevelFile(level));
        QByteArray endless(8 << 20, '0');
        QBuffer buffer(&endless);
        buffer.open(QIODevice::ReadOnly);
        QVERIFY(readLevelFrom(level, buffer, "x").refusal.contains("tři řádky"));
        QVERIFY(buffer.pos() < (2 << 20));
    }

    // A name with bytes that are not UTF-8 survives the round trip, is read and saved under
    // its own bytes, and is shown with those bytes escaped.
    void namesThatAreNotUtf8() {
        QRandomGenerator random(5);
        for (int round = 0; round < 2000; ++round) {
            QByteArray bytes;
            for (int i = random.bounded(1, 12); i > 0; --i) bytes += char(random.bounded(1, 256));
            QCOMPARE(fileNameToBytes(fileNameFromBytes(bytes)), bytes);
        }
        QCOMPARE(fileNameFromBytes("úroveň.VRK"), QString("úroveň.VRK"));  // UTF-8 as it is
        QTemporaryDir folder;
        const QByteArray raw = QFile::encodeName(folder.path()) + "/a\xff\xc3\x62.VRK";
        const QString name = fileNameFromBytes(raw);
        Level level = filledLevel(5, 4, 25), back;
        level.setCell(1, 1, HeroCode);
        QVERIFY(writeLevelFile(level, name).ok());
        struct stat written {};
        QVERIFY(::stat(raw.constData(), &written) == 0 && S_ISREG(written.st_mode));
        QVERIFY(readLevelFile(back, name).ok());
        QCOMPARE(encodeLevelFile(back), encodeLevelFile(level));
        QVERIFY(shownFileName(name).endsWith("/a\\xff\\xc3\x62.VRK"));
    }

    // Walls and the hero are looked for in the level proper; wall pieces join their arms.
    void queriesStayInTheLevelProperAndPiecesJoinTheirArms() {
        const Level level = filledLevel(30, 20, 1);  // walls, the margin included
        for (QPoint off : {QPoint(0, 5), QPoint(5, 0), QPoint(-1, 5), QPoint(30, 5), QPoint(5, 20),
                           QPoint(5, 25)})
            QVERIFY(!isWallAt(level, off.x(), off.y()));
        QVERIFY(isWallAt(level, 25, 5) && isWallAt(level, 29, 19));  // x against the width
        // Save looks for a hero in the level proper only.
        Level heroes = filledLevel(4, 3, 0);
        heroes.setCell(4, 2, HeroCode);
        QVERIFY(!containsHero(heroes));
        heroes.setCell(3, 2, HeroCode);
        QVERIFY(containsHero(heroes));
        // Each wall piece has the arms its key names.
        for (int key = 0; key < 16; ++key) {
            const std::string walls = {key & 8 ? '1' : '0', key & 4 ? '1' : '0',
                                       key & 2 ? '1' : '0', key & 1 ? '1' : '0'};
            QCOMPARE(std::pair(key, wallPieceFor(key)), std::pair(key, predictedWallPiece(walls)));
            QCOMPARE(std::pair(key, wallKey(armsOfPiece(wallPieceFor(key)))), std::pair(key, key));
        }
        // Every look of a straight piece has the arms of its first look.
        for (int look = FirstWallPiece; look < FirstVerticalPiece + 4; ++look)
            QCOMPARE(wallKey(armsOfPiece(look)),
                     wallKey(armsOfPiece(look < FirstVerticalPiece ? 1 : FirstVerticalPiece)));
        for (int code : {FloorCode, FirstFurniture, -1}) QCOMPARE(wallKey(armsOfPiece(code)), 0);
    }
    // Large buffers start on a 2 MiB boundary, hold every byte asked for without touching
    // each other, and are left out of a forked child; small ones come from the heap, which a
    // child keeps.
    void largeBuffersAreWholeAlignedAndLeftToTheParent() {
        const std::size_t sizes[] = {1,       (512 << 10) - 1, 512 << 10,
                                     2 << 20, (2 << 20) + 1,   5 << 20};
        constexpr std::size_t Count = std::size(sizes);
        const auto isLarge = [&](std::size_t i) { return sizes[i] >= 512 << 10; };
        unsigned char* buffers[Count];
        for (std::size_t i = 0; i < Count; ++i) {
            buffers[i] = static_cast<unsigned char*>(allocateLargeBuffer(sizes[i]));
            QVERIFY(buffers[i]);
            std::memset(buffers[i], int(i + 1), sizes[i]);
            if (isLarge(i)) QCOMPARE(reinterpret_cast<std::uintptr_t>(buffers[i]) % (2 << 20), 0u);
        }
        for (std::size_t i = 0; i < Count; ++i)
            QVERIFY(std::all_of(buffers[i], buffers[i] + sizes[i],
                                [&](unsigned char byte) { return byte == i + 1; }));
        const pid_t child = fork();
        if (child == 0) {  // a bit set for each buffer the child has that it should not, or lacks
            int wrong = 0;
            for (std::size_t i = 0; i < Count; ++i) {
                const bool mapped = isLarge(i) ? msync(buffers[i], sizes[i], MS_ASYNC) == 0
                                               : buffers[i][sizes[i] - 1] == i + 1;
                if (mapped != !isLarge(i)) wrong |= 1 << i;
            }
            _exit(wrong);
        }
        int status = -1;
        QVERIFY(waitpid(child, &status, 0) == child && WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 0);
        for (std::size_t i = 0; i < Count; ++i) freeLargeBuffer(buffers[i], sizes[i]);
    }
};

QTEST_GUILESS_MAIN(LevelModelTest)
#include "test_level_model.moc"
