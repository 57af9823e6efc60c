#include "level.h"
#include "level_file.h"
#include "recording_dialogs.h"
#include "tile_codes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// A level file of `columns` x `rows` whose grid lines are given, each without its border.
QByteArray levelFile(int columns, int rows, const QList<QByteArray>& gridLines) {
    const QByteArray border(columns + 14, '0');
    QByteArray bytes = "1\r\n " + QByteArray::number(columns + 14) + " \r\n " +
                       QByteArray::number(rows + 14) + " \r\n";
    for (int i = 0; i < 7; ++i) bytes += border + "\r\n";
    for (const QByteArray& line : gridLines) bytes += "0000000" + line + "0000000\r\n";
    return bytes;
}

}  // namespace

class LevelModelTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    QString path() const { return dir.filePath("level99.VRK"); }

  private slots:
    void writesTheExactBytesAndReadsThemBack() {
        Level level;
        level.Allocate(20, 20);
        level.setCell(3, 0, 17);
        level.setCell(19, 19, HeroCode);
        QVERIFY(!WriteLevelFile(level, path()));

        QByteArray expected = "1\r\n 34 \r\n 34 \r\n";
        const QByteArray zeros(34, '0');
        for (int i = 0; i < 7; ++i) expected += zeros + "\r\n";
        expected += "0000000000A" + QByteArray(23, '0') + "\r\n";
        for (int i = 0; i < 18; ++i) expected += zeros + "\r\n";
        expected += QByteArray(26, '0') + char(183) + "0000000\r\n";
        for (int i = 0; i < 7; ++i) expected += zeros + "\r\n";
        const QByteArray written = readAll(path());
        QCOMPARE(written, expected);
        QCOMPARE(written.count("\r\n"), 37);

        // Every storable code on a non-square level survives the round trip.
        Level wide;
        wide.Allocate(30, 20);
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 30; ++x) {
                const int code = (y * 30 + x) % 208;
                wide.setCell(x, y, static_cast<qint16>(code == HeroCode ? 0 : code));
            }
        wide.setCell(12, 7, HeroCode);
        QVERIFY(!WriteLevelFile(wide, path()));
        RecordingDialogs dialogs;
        Level back;
        QVERIFY(!ReadLevelFile(back, dialogs, path()));
        QVERIFY(dialogs.shown.isEmpty());
        QCOMPARE(EncodeLevelFile(back), EncodeLevelFile(wide));  // sizes and cells
        QCOMPARE(back.cell(30, 20), 0);                          // the margin is never in the file

        QCOMPARE(back.HeroX.value_or(-1), 12);
        QCOMPARE(back.HeroY.value_or(-1), 7);
        // The largest level: over a megabyte, so a line crosses the end of the reader's block.
        Level widest;
        widest.Allocate(MaxLevelSide, MaxLevelSide);
        for (int y = 0; y < MaxLevelSide; ++y)
            for (int x = 0; x < MaxLevelSide; x += 7)
                widest.setCell(x, y, static_cast<qint16>(y % 208));
        QVERIFY(!WriteLevelFile(widest, path()));
        QVERIFY(!ReadLevelFile(back, dialogs, path()));
        QVERIFY(dialogs.shown.isEmpty());
        QCOMPARE(EncodeLevelFile(back), EncodeLevelFile(widest));
    }

    void readsWhatPeopleWriteByHand() {
        RecordingDialogs dialogs;
        Level level;

        // Size lines without blanks.
        writeAll(path(), "1\r\n24\r\n34\r\n");
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        QCOMPARE(level.GridWidth, 10);
        QCOMPARE(level.GridHeight, 20);
        QVERIFY(dialogs.shown.isEmpty());  // ending after line 3 is silent

        // A short first row: the message for row 0 and an all-floor level.
        writeAll(path(), levelFile(4, 3, {"1111", "111", "1111"})
                             .replace("0000000"
                                      "1111",
                                      "000000"
                                      "1111"));
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        QCOMPARE(dialogs.shown.value(0), "error||NEODPOVIDA DELKA RADKU 0 V level99.VRK!");
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x) QCOMPARE(level.cell(x, y), 0);

        // A row too long, and a file cut off inside a row, stop at that row.
        dialogs.shown.clear();
        writeAll(path(), levelFile(4, 3, {"1111", "11111", "1111"}));
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        writeAll(path(), levelFile(4, 3, {"1111", "1111", "1111"}).chopped(5));
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        QCOMPARE(dialogs.shown, QStringList({"error||NEODPOVIDA DELKA RADKU 1 V level99.VRK!",
                                             "error||NEODPOVIDA DELKA RADKU 2 V level99.VRK!"}));
        QCOMPARE(level.cell(3, 1), 1);
        QCOMPARE(level.cell(3, 2), 0);

        // A short third row keeps rows 0 and 1; the last hero in reading order wins;
        // a lone LF is a byte of its line; bytes below "0" give negative codes.
        dialogs.shown.clear();
        writeAll(path(), levelFile(4, 4,
                                   {"\xb7"
                                    "1/A",
                                    "2\n\xb7"
                                    "3",
                                    "12", "4444"}));
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        QCOMPARE(dialogs.shown, QStringList{"error||NEODPOVIDA DELKA RADKU 2 V level99.VRK!"});
        QCOMPARE(level.cell(0, 0), HeroCode);
        QCOMPARE(level.cell(1, 0), 1);
        QCOMPARE(level.cell(2, 0), -1);
        QCOMPARE(level.cell(3, 0), 17);
        QCOMPARE(level.cell(1, 1), '\n' - 48);
        QCOMPARE(level.cell(3, 1), 3);
        QCOMPARE(level.cell(0, 2), 0);
        QCOMPARE(level.cell(0, 3), 0);
        QCOMPARE(level.HeroX.value_or(-1), 2);
        QCOMPARE(level.HeroY.value_or(-1), 1);
    }

    void refusesABadHeaderAndKeepsTheLevel() {
        Level level;
        level.Allocate(5, 6);
        level.setCell(2, 2, 25);
        level.HeroX = 3;
        const QByteArray kept = EncodeLevelFile(level);
        const struct {
            QByteArray bytes;
            const char* reasonPart;
        } cases[] = {
            {"", "prázdný"},
            {"1\r\n 34 \r\n", "tři řádky"},
            {"1\r\nabc\r\n 34 \r\n", "řádku 2 není celé číslo"},
            {"1\r\n 34 \r\n 3 4\r\n", "řádku 3 není celé číslo"},
            {"1\r\n 34 \r\n 99999 \r\n", "řádku 3 je mimo"},  // beyond 16 bits
            {"1\r\n 34 \r\n 99999999999999999999999 \r\n", "řádku 3 je mimo"},
            {"1\r\n 13 \r\n 34 \r\n", "řádku 2 je mimo"},
            {"1\r\n -34 \r\n 34 \r\n", "řádku 2 je mimo"},
            {"1\r\n 34 \r\n 1015 \r\n", "řádku 3 je mimo"},
            {"1\r\n+-3\r\n 34 \r\n", "řádku 2 není celé číslo"},
            {QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), "řádku 2 není celé číslo"},
        };
        RecordingDialogs dialogs;
        for (const auto& c : cases) {
            writeAll(path(), c.bytes);
            const auto refusal = ReadLevelFile(level, dialogs, path());
            QVERIFY2(refusal && refusal->message.contains(c.reasonPart) &&
                         refusal->message.contains("level99.VRK"),
                     c.bytes.constData());
            QVERIFY(!refusal->missing);
            QCOMPARE(EncodeLevelFile(level), kept);
            QCOMPARE(level.HeroX.value_or(-1), 3);
        }
        const auto missing = ReadLevelFile(level, dialogs, dir.filePath("nothing.VRK"));
        QVERIFY(missing && missing->missing);
        QVERIFY(dialogs.shown.isEmpty());

        // The largest side reads; a leading sign and zeros are a whole number too.
        writeAll(path(), "1\r\n+01014\r\n 14 \r\n");
        QVERIFY(!ReadLevelFile(level, dialogs, path()));
        QCOMPARE(level.GridWidth, MaxLevelSide);
        QCOMPARE(level.GridHeight, 0);
    }

    void aFailedSaveLeavesTheOldFile() {
        writeAll(path(), "old level");
        Level level;
        level.Allocate(20, 20);

        // A full disk: the file system takes the first kilobyte only.
        rlimit unlimited{};
        getrlimit(RLIMIT_FSIZE, &unlimited);
        signal(SIGXFSZ, SIG_IGN);
        const rlimit kilobyte{1024, unlimited.rlim_max};
        setrlimit(RLIMIT_FSIZE, &kilobyte);
        const auto diskFull = WriteLevelFile(level, path());  // 1.3 kB
        setrlimit(RLIMIT_FSIZE, &unlimited);
        QVERIFY(diskFull && diskFull->contains("level99.VRK"));
        QCOMPARE(readAll(path()), QByteArray("old level"));

        // A folder where the file should be.
        const QString folder = dir.filePath("folder.VRK");
        QVERIFY(QDir().mkdir(folder));
        QVERIFY(WriteLevelFile(level, folder).has_value());
        QVERIFY(QFileInfo(folder).isDir());
    }

    void wallTestStaysInsideTheLevel() {
        Level level;
        level.Allocate(30, 20);
        for (int y = 0; y <= 20; ++y)
            for (int x = 0; x <= 30; ++x) level.setCell(x, y, 1);
        QCOMPARE(IsWallAt(level, 0, 5), 0);  // strict lower bounds
        QCOMPARE(IsWallAt(level, 5, 0), 0);
        QCOMPARE(IsWallAt(level, -1, 5), 0);
        QCOMPARE(IsWallAt(level, 30, 5), 0);  // the margin column and row
        QCOMPARE(IsWallAt(level, 5, 20), 0);
        QCOMPARE(IsWallAt(level, 25, 5), 1);  // beyond the height, inside the width
        QCOMPARE(IsWallAt(level, 5, 25), 0);
        QCOMPARE(IsWallAt(level, 29, 19), 1);
        const qint16 codes[] = {22, 23, 0, -3, 1};
        const int expected[] = {1, 0, 0, 0, 1};
        for (int i = 0; i < 5; ++i) {
            level.setCell(29, 19, codes[i]);
            QCOMPARE(IsWallAt(level, 29, 19), expected[i]);
        }
        level.Allocate(3, 3);
        QCOMPARE(IsWallAt(level, 1, 1), 0);
        QCOMPARE(level.cell(3, 3), 0);
        QVERIFY(!level.HeroX);
    }
};

QTEST_GUILESS_MAIN(LevelModelTest)
#include "test_level_model.moc"
