#include "level_document.h"
#include "minimap_canvas.h"
#include "tile_codes.h"
#include "tools.h"

#include <QDataStream>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

namespace {

// What an undo must bring back, as one string: the saved bytes, the hero, the minimap's
// drawing colour and every cell's code, map cell and dot.
QByteArray shown(LevelDocument& document) {
    const Level& level = document.level();
    QByteArray all = encodeLevelFile(level);
    QDataStream out(&all, QIODevice::Append);
    out << level.hero().has_value() << level.heroOrOrigin() << document.minimap().drawingColour();
    for (int y = 0; y <= level.height(); ++y)
        for (int x = 0; x <= level.width(); ++x)
            out << level.cell(x, y) << document.map().cellAt(x, y)
                << document.minimap().dotAt(x, y);
    return all;
}

// Opens and redraws, as the window does, a level of random codes: mostly floor, any code with a
// picture (139 has no dot colour of its own), in some a code without one, stopping the repaint.
void openRandomLevel(LevelDocument& document, QRandomGenerator& random) {
    Level level;
    level.reset(random.bounded(5, 24), random.bounded(5, 24));
    const int codes = random.bounded(4) ? SheetCellCount : SheetCellCount + 1;
    for (int y = 0; y < level.height(); ++y)
        for (int x = 0; x < level.width(); ++x)
            if (random.bounded(3) == 0) level.setCell(x, y, qint16(random.bounded(codes)));
    QVERIFY(writeLevelFile(level, document.levelFile()).ok());
    QVERIFY(document.open().ok());
    if (document.repaintGrid()) document.drawFrame(WallToolCode);
}

}  // namespace

class HistoryTest : public QObject {
    Q_OBJECT

  private slots:
    // Random levels, strokes of every tool (rooms cut off at the margin, the hero, walls against
    // the frame), New, Open and undos inside strokes: each undo gives back exactly the level
    // before its step, redoing all gives the end, the wall generator never moves back. With a
    // small limit the oldest steps go and the rest still undo and redo exactly.
    void undoAndRedoGiveBackEachStepExactly() {
        QRandomGenerator random(16);
        QTemporaryDir folder;
        for (int round = 0; round < 40; ++round) {
            LevelDocument document{QDir(folder.path())};
            openRandomLevel(document, random);
            const bool limited = round % 4 == 3;
            document.setHistoryLimit(limited ? 6000 : HistoryByteLimit);
            std::map<int, QByteArray> afterStep{{0, shown(document)}};
            QSet<QByteArray> seen{afterStep[0]};  // with steps dropped, the indices move
            for (int step = 0; step < 30; ++step) {
                if (random.bounded(8) == 0) {  // New or Open
                    if (random.bounded(2)) {
                        document.newLevel(random.bounded(3, 30), random.bounded(3, 30));
                        QVERIFY(document.repaintGrid());
                        document.drawFrame(WallToolCode);
                    } else {
                        openRandomLevel(document, random);
                    }
                    document.recordReplacement({}, {});
                } else {
                    document.beginStroke();
                    for (int event = random.bounded(1, 8); event > 0; --event) {
                        const Level& level = document.level();
                        document.applyTool(random.bounded(2, std::max(3, level.width() - 2)),
                                           random.bounded(2, std::max(3, level.height() - 2)),
                                           paletteTools()[random.bounded(26)].code);
                        if (random.bounded(10) == 0) document.undo();  // Ctrl+Z inside a stroke
                    }
                    document.endStroke();
                }
                if (limited && !document.history().canRedo())
                    QVERIFY(document.historyBytes() <= 6000);
                seen << (afterStep[document.history().index()] = shown(document));
            }
            while (document.history().canRedo()) {  // a stroke's own undo
                document.redo();
                afterStep[document.history().index()] = shown(document);
            }
            const QByteArray end = shown(document);
            const quint32 generator = document.wallGenerator().state();
            while (document.history().canUndo()) {
                document.undo();
                if (!limited) QCOMPARE(shown(document), afterStep[document.history().index()]);
                QVERIFY(seen.contains(shown(document)));
            }
            while (document.history().canRedo()) document.redo();
            QCOMPARE(shown(document), end);
            QCOMPARE(document.wallGenerator().state(), generator);
        }
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "test_history.moc"
