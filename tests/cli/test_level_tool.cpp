#include "frame_prediction.h"
#include "level.h"
#include "level_file.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>

namespace {

constexpr int W = 12, H = 11;
constexpr QRgb Wall = qRgb(0, 0, 0), Floor = qRgb(184, 221, 239), Room = qRgb(0, 128, 0);
struct Cell {
    int x, y, code;
    QRgb dot;  // its colour on the minimap
};
// Every kind of object, none on the wall frame or where a wall would join it; room A whole,
// and room B's corner alone.
const std::vector<Cell> sample = [] {
    // clang-format off
    std::vector<Cell> cells = {{4, 0, 2, Wall}, {7, 7, 13, Wall}, {7, 3, 135, qRgb(255, 0, 0)},
        {8, 3, 23, qRgb(128, 0, 0)}, {11, 5, 25, qRgb(128, 0, 0)}, {7, 5, 124, qRgb(0, 0, 255)},
        {5, 10, 126, qRgb(0, 0, 255)}, {8, 7, 134, qRgb(0, 128, 128)}, {3, 8, 33, Room}};
    // clang-format on
    const int roomA[4][3] = {{30, 31, 32}, {40, 41, 42}, {50, 51, 52}, {60, 114, 62}};
    for (int dy = 0; dy < 4; ++dy)
        for (int dx = 0; dx < 3; ++dx) cells.push_back({3 + dx, 3 + dy, roomA[dy][dx], Room});
    return cells;
}();
Cell sampleAt(int x, int y) {
    for (const Cell& c : sample)
        if (c.x == x && c.y == y) return c;
    return {x, y, 0, Floor};
}
// What the editor shows after opening the sample: the frame drawn over its cells.
int shownCode(int x, int y) {
    static const auto frame = predictedFrame(W, H);
    return frame.count({x, y}) ? frame.at({x, y}) : sampleAt(x, y).code;
}
QRect sheetCell(int code) {
    return {code % 10 * 64, code / 10 * 64, 64, 64};
}

QByteArray levelFile(const std::vector<Cell>& cells) {
    QList<QByteArray> rows(H, QByteArray(W, '0'));
    for (const Cell& c : cells) rows[c.y][c.x] = char('0' + c.code);
    const QByteArray border = QByteArray(W + 14, '0') + "\r\n";
    QByteArray bytes = "1\r\n 26 \r\n 25 \r\n" + border.repeated(7);
    for (const QByteArray& row : rows) bytes += "0000000" + row + "0000000\r\n";
    return bytes + border.repeated(7);
}

struct Run {
    int code;
    QStringList out, err;
};

}  // namespace

class LevelToolTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    QImage sheet{640, 896, QImage::Format_RGB32};
    void write(const QString& name, const QByteArray& bytes) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    // No display, no platform plugin, no locale: only the sanitizers' settings go along.
    Run run(const QString& arguments, bool fullDisk = false) {
        QProcess process;
        QProcessEnvironment bare;
        for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
            bare.insert(name, qEnvironmentVariable(name));
        process.setProcessEnvironment(bare);
        process.setWorkingDirectory(dir.path());
        if (fullDisk)  // the file system takes 512 bytes, then refuses
            process.setChildProcessModifier([] {
                signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{512, RLIM_INFINITY};
                setrlimit(RLIMIT_FSIZE, &limit);
            });
        process.start(VARNOK_LEVEL, arguments.split('|', Qt::SkipEmptyParts));
        process.waitForFinished(120000);
        const QString out = process.readAllStandardOutput(), err = process.readAllStandardError();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                out.split('\n', Qt::SkipEmptyParts), err.split('\n', Qt::SkipEmptyParts)};
    }

  private slots:
    void initTestCase() {
        std::vector<Cell> noHero = sample, noPicture = sample;
        std::erase_if(noHero, [](const Cell& c) { return c.code == 135; });
        noPicture.insert(noPicture.end(), {{9, 4, 160, 0}, {2, 6, 200, 0}});
        QByteArray shortRow = levelFile(sample);
        shortRow.remove(shortRow.indexOf("\r\n", 15 + 11 * 28) - 1, 1);  // row 4
        write("level.VRK", levelFile(sample));
        write("úroveň ok.VRK", levelFile(sample));
        write("úroveň bez hrdiny.VRK", levelFile(noHero));
        write("úroveň bez obrázku.VRK", levelFile(noPicture));
        write("úroveň krátký řádek.VRK", shortRow);
        write("úroveň prázdná.VRK", "");
        write("úroveň špatný rozměr.VRK", "1\r\n abc \r\n 30 \r\n");
        // Sheet cell n: a colour of its own with a mark in its top-left corner.
        QPainter painter(&sheet);
        for (int n = 0; n < 140; ++n) {
            painter.fillRect(sheetCell(n), QColor(qRgb(n, 255 - n, 99)));
            painter.fillRect(sheetCell(n).adjusted(0, 0, -48, -48), QColor(qRgb(255, 255, n)));
        }
        QVERIFY(sheet.save(dir.filePath("EditPic.jpg"), "PNG"));  // images are read by content
    }

    void check_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");  // after "FILE: "; empty: the reader's own
        QTest::newRow("ok") << 0 << "ok, 12 × 11, hero at (7, 3)";
        QTest::newRow("bez hrdiny") << 1 << "Je nutné umístit počáteční pozici hrdiny";
        QTest::newRow("bez obrázku")
            << 1 << "Soubor úroveň bez obrázku.VRK: kód 200 v buňce (2, 6) nemá obrázek.";
        for (const char* tag : {"krátký řádek", "prázdná", "špatný rozměr", "chybí"})
            QTest::newRow(tag) << 1 << QString();
    }
    void check() {
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString name = QStringLiteral("úroveň %1.VRK").arg(QTest::currentDataTag());
        Level level;
        const LevelReadResult read = readLevelFile(level, dir.filePath(name));
        if (message.isEmpty()) message = read.ok() ? read.warning : read.refusal;
        QVERIFY(!message.isEmpty());
        const Run text = run("check|" + name), json = run("check|--json|" + name);
        QCOMPARE(text.code, code);
        QCOMPARE(text.out, QStringList(name + ": " + message));
        QCOMPARE(json.code, code);
        const QJsonObject o = QJsonDocument::fromJson(json.out.value(0).toUtf8()).object();
        QCOMPARE(o["file"].toString(), name);
        QCOMPARE(o["ok"].toBool(), code == 0);
        QCOMPARE(o["messages"].toArray().size(), code);
        if (code == 1) QCOMPARE(o["messages"][0].toString(), message);
        if (code == 0) QCOMPARE(o["hero"].toObject(), (QJsonObject{{"x", 7}, {"y", 3}}));
        QCOMPARE(o["width"].toInt(-1), read.ok() ? W : -1);
    }

    void info() {
        const Run info = run("info|--json|level.VRK");
        QCOMPARE(info.code, 0);
        const QJsonObject o = QJsonDocument::fromJson(info.out.value(0).toUtf8()).object();
        QStringList counts;  // in the palette's order
        for (const QJsonValue entry : o["objects"].toArray())
            counts << entry["name"].toString() + ' ' + QString::number(entry["count"].toInt());
        QCOMPARE(counts.join(", "),
                 "Podlaha 111, Zeď 2, Židle 1, Bedna 1, WC 1, Peníze 1, "
                 "Život 1, Místnost A 1, Hrdina 1");
        QCOMPARE(o["otherCodes"].toArray().size(), 1);
        QCOMPARE(o["otherCodes"][0]["code"].toInt(), 33);
    }

    void renderShowsTheEditorsMapAndMinimap() {
        QCOMPARE(run("render|level.VRK|-o|mapa č. 1.png").code, 0);
        QImage expected(W * 64, H * 64, QImage::Format_RGB32);
        QPainter painter(&expected);
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x)
                painter.drawImage(QPoint(x * 64, y * 64), sheet, sheetCell(shownCode(x, y)));
        const QImage map(dir.filePath("mapa č. 1.png"));
        QCOMPARE(map.convertToFormat(QImage::Format_RGB32), expected);

        QCOMPARE(run("render|level.VRK|-o|small.png|--cell-size|8").code, 0);
        const QImage small(dir.filePath("small.png"));
        QCOMPARE(small.size(), QSize(W * 8, H * 8));
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x)  // away from the mark, each cell is its own colour
                QCOMPARE(small.pixel(x * 8 + 5, y * 8 + 5),
                         sheet.pixel(sheetCell(shownCode(x, y)).center()));

        QCOMPARE(run("render|level.VRK|-o|mini.png|--minimap").code, 0);
        const QImage minimap(dir.filePath("mini.png"));
        QCOMPARE(minimap.size(), QSize(W * 6, H * 6));
        for (int py = 0; py < H * 6; ++py)
            for (int px = 0; px < W * 6; ++px) {
                const int x = (px + 3) / 6, y = (py + 3) / 6;  // dots centred on (6x, 6y)
                const Cell cell = sampleAt(x, y);
                QCOMPARE(minimap.pixel(px, py), shownCode(x, y) == cell.code ? cell.dot : Wall);
            }
    }

    // Every answer, good or bad: its exit code, what it tells, one line at most on standard
    // error unless the usage follows, and no file left behind.
    void answers_data() {
        QTest::addColumn<QString>("arguments");  // separated by |
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* tag, const char* arguments, int code, const char* told) {
            QTest::newRow(tag) << QString(arguments) << code << QString(told);
        };
        row("version", "--version", 0, "varnok-level 1.0");
        row("two files", "check|level.VRK|úroveň ok.VRK", 0, "ok.VRK: ok, 12 × 11");
        row("one bad of two", "check|level.VRK|úroveň chybí.VRK", 1, "chybí.VRK nebyl nalezen");
        row("info", "info|level.VRK", 0, "level.VRK: 12 × 11, hrdina na (7, 3)\n  Podlaha: 111");
        row("help", "--help", 0, "render SOUBOR -o");
        row("no command", "", 2, "Chybí příkaz");
        row("unknown command", "draw|level.VRK", 2, "„draw“");
        row("no output", "render|level.VRK", 2, "-o OBR.png");
        row("cell size 0", "render|level.VRK|-o|x.png|--cell-size|0", 2, "--cell-size");
        row("other's option", "check|--minimap|level.VRK", 2, "--minimap");
        row("too large", "render|level.VRK|-o|x.png|--cell-size|5000", 1, "--cell-size 713.");
        row("no picture", "render|úroveň bez obrázku.VRK|-o|x.png", 1, "kód 200 v buňce (2, 6)");
        row("bad sheet", "render|level.VRK|-o|x.png|--sheet|level.VRK", 1, "level.VRK");
        row("no folder", "render|level.VRK|-o|chybí/x.png", 1, "chybí/x.png");
        row("full disk", "render|level.VRK|-o|x.png", 1, "x.png nelze uložit: File too large");
    }
    void answers() {
        QFETCH(QString, arguments);
        QFETCH(int, code);
        QFETCH(QString, told);
        const QStringList before = QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden);
        const Run result = run(arguments, QTest::currentDataTag() == QLatin1String("full disk"));
        QCOMPARE(result.code, code);
        const QString all = (result.out + result.err).join('\n');
        QVERIFY2(all.contains(told), qPrintable(all));
        if (code != 2) QVERIFY(result.err.size() <= 1);
        if (!result.err.isEmpty()) QVERIFY(result.err[0].startsWith("varnok-level: "));
        QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
    }
};

QTEST_GUILESS_MAIN(LevelToolTest)
#include "test_level_tool.moc"
