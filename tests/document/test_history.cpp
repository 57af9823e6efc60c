#include "minimap_dots.h"
#include "shown_level.h"
#include "tile_codes.h"
#include "tools.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

// Writes the level file with a level of random codes (some without a picture, or in some
// levels only codes with a dot colour of their own), and maybe one without in cell (0, 0).
static void writeRandomLevel(const QString& file, QRandomGenerator& random,
                             bool uncolouredFirst = false) {
    Level level;
    level.reset(random.bounded(3, 30), random.bounded(3, 30));
    const int codes = random.bounded(4) ? SheetCellCount : SheetCellCount + 1;
    const bool coloured = random.bounded(3) == 0;
    const auto& own = ownDotColours();
    for (int y = 0; y < level.height(); ++y)
        for (int x = 0; x < level.width(); ++x) {
            const int code = random.bounded(codes);
            if (random.bounded(3) == 0 &&
                (!coloured || (hasPicture(code) && own[std::size_t(code)] != NoOwnColour)))
                level.setCell(x, y, qint16(code));
        }
    if (uncolouredFirst)
        level.setCell(0, 0, qint16(std::find(own.begin(), own.end(), NoOwnColour) - own.begin()));
    QVERIFY(writeLevelFile(level, file).ok());
}

// A step that only holds a size (another once undone) and logs its undos and redos.
struct SizedStep : HistoryStep {
    SizedStep(int name, std::size_t size, std::size_t undoneSize, QString& log)
        : name(name), size(size), undoneSize(undoneSize), log(log) {}
    void undo() override { log += QStringLiteral("u%1 ").arg(name), size = undoneSize; }
    void redo() override { log += QStringLiteral("r%1 ").arg(name); }
    std::size_t bytes() const override { return size; }
    int name;
    std::size_t size, undoneSize;
    QString& log;
};

class HistoryTest : public QObject {
    Q_OBJECT

  private slots:
    void historyDropsTheFarthestStepsOverItsLimit() {
        QString log;
        LevelHistory history(100);
        const auto step = [&](int name, std::size_t size, std::size_t undone = 0) {
            return std::make_unique<SizedStep>(name, size, undone ? undone : size, log);
        };
        const auto held = [&] { return std::pair(history.count(), int(history.bytes())); };
        for (int name = 1; name <= 4; ++name) history.push(step(name, 30));
        QCOMPARE(held(), std::pair(3, 90));  // steps and their bytes: step 1 went
        QVERIFY(history.undo() && history.undo());
        history.push(step(5, 10));  // the undone 3 and 4 go
        QCOMPARE(held(), std::pair(2, 40));
        history.push(step(6, 20, 70));
        QVERIFY(history.undo());  // 6 grows to 70: the oldest done step, 2, goes
        QCOMPARE(held(), std::pair(2, 80));
        QCOMPARE(history.index(), 1);
        QVERIFY(history.undo());
        history.setLimit(75);  // nothing done: the last step to redo, 6, goes
        QCOMPARE(held(), std::pair(1, 10));
        history.setLimit(5);  // the next step to redo stays
        QCOMPARE(history.count(), 1);
        QVERIFY(!history.undo());
        QVERIFY(history.redo() && !history.redo());
        QCOMPARE(log, QStringLiteral("u4 u3 u6 u5 r5 "));
    }

    // Strokes, fills of every tool, undos inside strokes and Opens; also under a small limit.
    void undoAndRedoGiveBackEachStepExactly() {
        QRandomGenerator random(16);
        const auto inside = [&](int side) { return random.bounded(2, std::max(3, side - 2)); };
        QTemporaryDir folder;
        for (int round = 0; round < 40; ++round) {
            LevelDocument document{QDir(folder.path())};
            writeRandomLevel(document.levelFile(), random);
            QVERIFY(document.open().ok());
            const std::size_t limit = round % 4 == 3 ? 6000 : HistoryByteLimit;  // oldest go
            document.setHistoryLimit(limit);
            std::map<int, Shown> afterStep{{0, shown(document)}};
            for (int step = 0; step < 30; ++step) {
                const int kind = random.bounded(8);
                const auto tool = [&] { return paletteTools()[random.bounded(26)].code; };
                const auto cell = [&] {
                    return QPoint(inside(document.level().width()),
                                  inside(document.level().height()));
                };
                if (kind == 0) {  // an Open, a step of the history
                    writeRandomLevel(document.levelFile(), random);
                    QVERIFY(document.open(LevelView{}).ok());
                } else if (kind == 1)
                    document.fillRectangle(cell(), cell(), tool());
                else if (kind == 2)
                    document.floodFill(cell(), tool());
                else {
                    document.beginStroke();
                    for (int event = random.bounded(1, 8); event > 0; --event) {
                        const QPoint at = cell();
                        document.applyTool(at.x(), at.y(), tool());
                        if (random.bounded(10) == 0) document.undo();
                    }
                    document.endStroke();
                }
                QVERIFY(document.history().bytes() <= limit);
                afterStep[document.history().index()] = shown(document);
            }
            while (document.history().canRedo()) document.redo();  // a stroke's own undo
            const Shown end = shown(document);
            const quint32 generator = document.wallGenerator().state();
            std::vector<Shown> passed{end};  // each level undoing passes, in turn
            while (document.history().canUndo()) {
                document.undo();  // with steps dropped, the indices move
                QVERIFY(document.history().bytes() <= limit);  // undoing too keeps the limit
                passed.push_back(shown(document));
                if (limit > 6000)
                    QCOMPARE(difference(passed.back(), afterStep[document.history().index()]),
                             QString());
            }
            // Redoing passes them again backwards, as far as the steps kept reach.
            for (std::size_t back = passed.size() - 1; document.history().canRedo();) {
                document.redo();
                QVERIFY(back > 0);
                QCOMPARE(difference(shown(document), passed[--back]), QString());
            }
            if (limit > 6000) QCOMPARE(difference(shown(document), end), QString());
            QCOMPARE(document.wallGenerator().state(), generator);  // walls go on, not back
        }
    }

    // Open in two halves, read and drawn on a thread, shows and tells what Open does, walls
    // drawn between the halves or the file refused; undone and redone, the same levels.
    void preparedOpenShowsWhatOpenShows() {
        QRandomGenerator random(25);
        QTemporaryDir folder;
        for (int round = 0; round < 30; ++round) {
            LevelDocument serial{QDir(folder.path())};
            LevelDocument halves{QDir(folder.path())};
            writeRandomLevel(serial.levelFile(), random);
            QVERIFY(serial.open().ok() && halves.open().ok());
            // Three walls draw a straight piece; another tool may change the drawing colour alone.
            const auto bothApply = [&](int tool = WallToolCode) {
                const QPoint at(random.bounded(2, 10), random.bounded(2, 10));
                for (LevelDocument* document : {&serial, &halves})
                    for (int x = at.x(); x < at.x() + (tool == WallToolCode ? 3 : 1); ++x)
                        document->applyTool(x, at.y(), tool);
            };
            if (round % 2) bothApply();
            // In (0, 0), the first dot takes the drawing colour of the moment.
            writeRandomLevel(serial.levelFile(), random, round % 3 == 1);
            if (round % 7 == 6) QFile(serial.levelFile()).resize(4);  // refused: no grid line
            std::future<PreparedLevel> preparing = halves.prepareOpen();
            if (round % 3 == 2) bothApply();  // the prepared drawing no longer fits
            if (round % 3 == 1) bothApply(paletteTools()[random.bounded(26)].code);
            QSignalSpy serialTold(&serial, &LevelDocument::cellsChanged);
            QSignalSpy halvesTold(&halves, &LevelDocument::cellsChanged);
            const LevelReadResult serialRead = serial.open(LevelView{});
            const LevelReadResult halvesRead = halves.open(preparing.get(), LevelView{});
            QCOMPARE(halvesRead.refusal, serialRead.refusal);
            QCOMPARE(serialRead.ok(), round % 7 != 6);
            QCOMPARE(halvesTold.size(), serialTold.size());
            if (!serialTold.isEmpty())
                QCOMPARE(halvesTold.last()[0].value<QRegion>().boundingRect(),
                         serialTold.last()[0].value<QRegion>().boundingRect());
            const auto same = [&] {
                QCOMPARE(difference(shown(halves), shown(serial)), QString());
                QCOMPARE(halves.wallGenerator().state(), serial.wallGenerator().state());
            };
            same();
            serial.undo(), halves.undo();
            same();
            serial.redo(), halves.redo();
            same();
            bothApply();
            same();
        }
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "test_history.moc"
