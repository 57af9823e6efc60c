#include "frame_prediction.h"
#include "level.h"
#include "level_file.h"

#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/sysmacros.h>

constexpr int W = 12, H = 11;
constexpr QRgb Wall = qRgb(0, 0, 0), Floor = qRgb(184, 221, 239), Room = qRgb(0, 128, 0);
struct Cell {
    int x, y, code;
    QRgb dot;  // its colour on the minimap
};
// Every kind of object, off the frame and its joins; room A whole, room B's corner alone.
// clang-format off
const std::vector<Cell> sample = {{4, 0, 2, Wall}, {7, 7, 13, Wall}, {7, 3, 135, qRgb(255, 0, 0)},
    {8, 3, 23, qRgb(128, 0, 0)}, {11, 5, 25, qRgb(128, 0, 0)}, {7, 5, 124, qRgb(0, 0, 255)},
    {5, 10, 126, qRgb(0, 0, 255)}, {8, 7, 134, qRgb(0, 128, 128)}, {3, 8, 33, Room},
    {3, 3, 30, Room}, {4, 3, 31, Room}, {5, 3, 32, Room}, {3, 4, 40, Room}, {4, 4, 41, Room},
    {5, 4, 42, Room}, {3, 5, 50, Room}, {4, 5, 51, Room}, {5, 5, 52, Room}, {3, 6, 60, Room},
    {4, 6, 114, Room}, {5, 6, 62, Room}};
// clang-format on
static Cell sampleAt(int x, int y) {
    const auto at = std::ranges::find_if(sample, [&](Cell c) { return c.x == x && c.y == y; });
    return at != sample.end() ? *at : Cell{x, y, 0, Floor};
}
// What the editor shows after opening the sample: the frame drawn over its cells.
static int shownCode(int x, int y) {
    static const auto frame = predictedFrame(W, H);
    return frame.count({x, y}) ? frame.at({x, y}) : sampleAt(x, y).code;
}
static QRect sheetCell(int code) {
    return {code % 10 * 64, code / 10 * 64, 64, 64};
}

class LevelToolTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    QImage sheet{640, 896, QImage::Format_RGB32};
    bool deviceMade = false;
    void write(const QString& name, const std::vector<Cell>& cells) {
        Level level;
        level.reset(W, H);
        for (const Cell& c : cells) level.setCell(c.x, c.y, qint16(c.code));
        QVERIFY(writeLevelFile(level, dir.filePath(name)).ok());
    }
    QStringList out, err;  // what the last run told
    // No display, no platform plugin, no locale: only the sanitizers' settings go along. A full
    // disk takes 512 bytes, then refuses.
    int run(const QString& arguments, bool fullDisk = false) {
        QProcess process;
        process.setWorkingDirectory(dir.path());
        const QString command =
            QString(fullDisk ? "trap '' XFSZ; ulimit -f 1; " : "") +
            "exec env -i ASAN_OPTIONS=\"$ASAN_OPTIONS\" LSAN_OPTIONS=\"$LSAN_OPTIONS\" "
            "UBSAN_OPTIONS=\"$UBSAN_OPTIONS\" \"$0\" \"$@\"";
        process.start("/bin/sh", QStringList{"-c", command, VARNOK_LEVEL} +
                                     arguments.split('|', Qt::SkipEmptyParts));
        process.waitForFinished(120000);
        out = QString(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        err = QString(process.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

  private slots:
    void initTestCase() {
        std::vector<Cell> noHero = sample, noPicture = sample;
        std::erase_if(noHero, [](const Cell& c) { return c.code == 135; });
        noPicture.insert(noPicture.end(), {{9, 4, 160, 0}, {2, 6, 200, 0}});
        write("úroveň ok.VRK", sample);
        write("úroveň bez hrdiny.VRK", noHero);
        write("úroveň bez obrázku.VRK", noPicture);
        noHero.push_back({10, 3, 135, 0});  // on the frame's right column, x = W - 2
        write("úroveň hrdina v rámečku.VRK", noHero);
        QVERIFY(QFile(dir.filePath("úroveň prázdná.VRK")).open(QIODevice::WriteOnly));
        // What -o must never replace: a pipe and a device of our own (/dev/null's numbers, where
        // nodes can be made), named through links.
        QCOMPARE(mkfifo(QFile::encodeName(dir.filePath("roura")).constData(), 0600), 0);
        QVERIFY(QFile::link(dir.filePath("roura"), dir.filePath("na rouru.png")));
        deviceMade = mknod(QFile::encodeName(dir.filePath("zařízení")).constData(), S_IFCHR | 0600,
                           makedev(1, 3)) == 0;
        QVERIFY(QFile::link(dir.filePath("zařízení"), dir.filePath("na zařízení.png")));
        QPainter painter(&sheet);
        for (int n = 0; n < 140; ++n)  // cell n: a colour of its own
            painter.fillRect(sheetCell(n), QColor(qRgb(n, 255 - n, 99)));
        QVERIFY(sheet.save(dir.filePath("EditPic.jpg"), "PNG"));  // images are read by content
        QByteArray cutOff;
        QBuffer buffer(&cutOff);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && sheet.save(&buffer, "JPG"));
        QFile half(dir.filePath("useknutý.jpg"));
        QVERIFY(half.open(QIODevice::WriteOnly) && half.write(cutOff.first(cutOff.size() / 2)) > 0);
    }

    // Told as a line and as JSON; `message` after "FILE: ", empty for the reader's own.
    void check() {
        const auto row = [&](const char* tag, int code, QString message) {
            const QString name = QStringLiteral("úroveň %1.VRK").arg(tag);
            Level level;
            const LevelReadResult read = readLevelFile(level, dir.filePath(name));
            if (message.isEmpty()) message = read.ok() ? read.warning : read.refusal;
            QCOMPARE(std::pair(run("check|" + name), out),
                     std::pair(code, QStringList(name + ": " + message)));
            QCOMPARE(run("check|--json|" + name), code);
            const QJsonObject o = QJsonDocument::fromJson(out.value(0).toUtf8()).object();
            QCOMPARE(std::tuple(o["file"].toString(), o["ok"].toBool(), o["messages"].toArray(),
                                o["width"].toInt(-1)),
                     std::tuple(name, code == 0, code ? QJsonArray{message} : QJsonArray(),
                                read.ok() ? W : -1));
            if (code == 0) QCOMPARE(o["hero"].toObject(), (QJsonObject{{"x", 7}, {"y", 3}}));
        };
        row("ok", 0, "ok, 12 × 11, hrdina na (7, 3)");
        row("hrdina v rámečku", 1,
            "Rámeček, který editor kreslí jednu buňku od okraje, zakryje hrdinu na (10, 3) a level "
            "tak přijde o počáteční pozici.");
        row("bez hrdiny", 1, "Je nutné umístit počáteční pozici hrdiny");
        row("bez obrázku", 1,
            "Soubor úroveň bez obrázku.VRK: kód 200 v buňce (2, 6) nemá obrázek.");
        for (const char* tag : {"prázdná", "chybí"}) row(tag, 1, QString());
    }

    void renderShowsTheEditorsMapAndMinimap() {
        QCOMPARE(run("render|úroveň ok.VRK|-o|mapa č. 1.png"), 0);
        QCOMPARE(run("render|úroveň ok.VRK|-o|mini.png|--minimap"), 0);
        const QImage map(dir.filePath("mapa č. 1.png")), minimap(dir.filePath("mini.png"));
        QCOMPARE(minimap.size(), QSize(W * 6, H * 6));
        QImage expected(W * 64, H * 64, QImage::Format_RGB32);
        QPainter painter(&expected);
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x) {  // a minimap dot centred on (6x, 6y)
                painter.drawImage(QPoint(x * 64, y * 64), sheet, sheetCell(shownCode(x, y)));
                const Cell cell = sampleAt(x, y);
                QCOMPARE(minimap.pixel(6 * x, 6 * y),
                         shownCode(x, y) == cell.code ? cell.dot : Wall);
            }
        QCOMPARE(map.convertToFormat(QImage::Format_RGB32), expected);
    }

    // Each answer: its exit code, what it tells, one error line unless the usage follows, no file.
    void answers() {
        // Qt's own lines are Czech too, whatever the locale (the program runs with none).
        static const QRegularExpression english(
            "\\b(Usage|Options|Arguments|Displays|Unknown|Missing|Unexpected|option|value)\\b");
        const auto entries = [&] {  // no pipes nor devices: one that became a file shows
            return QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden);
        };
        const auto row = [&](const char* tag, const char* arguments, int code, const char* told) {
            const QStringList before = entries();
            const int exitCode = run(arguments, QByteArray(tag) == "full disk");
            const QString all = (out + err).join('\n');
            QVERIFY2(exitCode == code && all.contains(told) && !english.match(all).hasMatch() &&
                         (code == 2 || err.size() <= 1) &&
                         (err.isEmpty() || err[0].startsWith("varnok-level: ")),
                     qPrintable(QString("%1, exit code %2: %3").arg(tag).arg(exitCode).arg(all)));
            QCOMPARE(std::pair(tag, entries()), std::pair(tag, before));
        };
        const char* const census = "Život: 1\n  Místnost A: 1\n  Hrdina: 1\n  kód 33 (část";
        row("one bad of three", "check|úroveň ok.VRK|úroveň chybí.VRK|úroveň ok.VRK", 1,
            "(7, 3)\núroveň chybí");
        row("info", "info|úroveň ok.VRK", 0, census);
        row("info without hero", "info|úroveň bez hrdiny.VRK", 0, "11, bez hrdiny\n  ! Je nutné");
        row("no command", "", 2, "Chybí příkaz");
        row("unknown command", "draw|úroveň ok.VRK", 2, "„draw“");
        row("no output", "render|úroveň ok.VRK", 2, "-o OBR.png");
        row("other's option", "check|--minimap|úroveň ok.VRK", 2, "--minimap");
        row("too large", "render|úroveň ok.VRK|-o|x.png|--cell-size|5000", 1, "--cell-size 713.");
        row("no picture", "render|úroveň bez obrázku.VRK|-o|x.png", 1, "kód 200 v buňce (2, 6)");
        row("bad sheet", "render|úroveň ok.VRK|-o|x.png|--sheet|úroveň ok.VRK", 1, "ok.VRK");
        row("cut-off sheet", "render|úroveň ok.VRK|-o|x.png|--sheet|useknutý.jpg", 1, "neúplný");
        row("no folder", "render|úroveň ok.VRK|-o|chybí/x.png", 1, "chybí/x.png");
        row("full disk", "render|úroveň ok.VRK|-o|x.png", 1, "x.png nelze uložit: File too large");
        row("no image suffix", "render|úroveň ok.VRK|-o|kopie.VRK", 2,
            "„.VRK“ není formát obrázku");
        row("help", "--help", 0, "Volby:");
        row("version", "--version", 0, "varnok-level ");
        row("missing value", "render|úroveň ok.VRK|-o", 2, "Chybějící hodnota po '-o'.");
        row("value not taken", "check|--json=1|úroveň ok.VRK", 2, "Neočekávaná hodnota");
        row("pipe", "render|úroveň ok.VRK|-o|na rouru.png", 1, "ale pojmenovaná roura (FIFO)");
        if (deviceMade)  // device nodes cannot be made everywhere
            row("device", "render|úroveň ok.VRK|-o|na zařízení.png", 1, "ale znakové zařízení");
        for (const char* link : {"na rouru.png", "na zařízení.png"})
            QVERIFY(QFileInfo(dir.filePath(link)).isSymLink());
    }
};

QTEST_GUILESS_MAIN(LevelToolTest)
#include "test_level_tool.moc"
