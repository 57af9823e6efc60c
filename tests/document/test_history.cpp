#include "level_document.h"
#include "minimap_dots.h"
#include "tile_codes.h"
#include "tools.h"

#include <QDataStream>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

// What an undo must bring back: the saved bytes, the hero, and both canvases.
static QByteArray shown(LevelDocument& document) {
    const Level& level = document.level();
    QByteArray all = encodeLevelFile(level);
    QDataStream out(&all, QIODevice::Append);
    out << level.hero().has_value() << level.heroOrOrigin() << document.minimap().drawingColour();
    for (int y = 0; y <= level.height(); ++y)
        for (int x = 0; x <= level.width(); ++x)
            out << document.map().cellAt(x, y) << document.minimap().dotAt(x, y);
    return all;
}

// Opens a level of random codes (some without a picture, or in some levels only codes with a
// dot colour of their own) and redraws it as the window does.
static void openRandomLevel(LevelDocument& document, QRandomGenerator& random) {
    Level level;
    level.reset(random.bounded(3, 30), random.bounded(3, 30));
    const int codes = random.bounded(4) ? SheetCellCount : SheetCellCount + 1;
    const bool coloured = random.bounded(3) == 0;
    for (int y = 0; y < level.height(); ++y)
        for (int x = 0; x < level.width(); ++x) {
            const int code = random.bounded(codes);
            if (random.bounded(3) == 0 &&
                (!coloured || (hasPicture(code) && ownDotColours()[code] != NoOwnColour)))
                level.setCell(x, y, qint16(code));
        }
    QVERIFY(writeLevelFile(level, document.levelFile()).ok() && document.open().ok());
    if (document.repaintGrid()) document.drawFrame(WallToolCode);
}

class HistoryTest : public QObject {
    Q_OBJECT

  private slots:
    // Strokes of every tool, undos inside them and Opens; also under a small history limit.
    void undoAndRedoGiveBackEachStepExactly() {
        QRandomGenerator random(16);
        const auto inside = [&](int side) { return random.bounded(2, std::max(3, side - 2)); };
        QTemporaryDir folder;
        for (int round = 0; round < 40; ++round) {
            LevelDocument document{QDir(folder.path())};
            openRandomLevel(document, random);
            const std::size_t limit = round % 4 == 3 ? 6000 : HistoryByteLimit;  // oldest go
            document.setHistoryLimit(limit);
            std::map<int, QByteArray> afterStep{{0, shown(document)}};
            for (int step = 0; step < 30; ++step) {
                if (random.bounded(8) == 0) {
                    openRandomLevel(document, random);
                    document.recordReplacement({}, {});
                } else {
                    document.beginStroke();
                    for (int event = random.bounded(1, 8); event > 0; --event) {
                        document.applyTool(inside(document.level().width()),
                                           inside(document.level().height()),
                                           paletteTools()[random.bounded(26)].code);
                        if (random.bounded(10) == 0) document.undo();
                    }
                    document.endStroke();
                }
                QVERIFY(document.historyBytes() <= limit);
                afterStep[document.history().index()] = shown(document);
            }
            while (document.history().canRedo()) document.redo();  // a stroke's own undo
            const QByteArray end = shown(document);
            const quint32 generator = document.wallGenerator().state();
            std::vector<QByteArray> passed{end};  // each level undoing passes, in turn
            while (document.history().canUndo()) {
                document.undo();  // with steps dropped, the indices move
                QVERIFY(document.historyBytes() <= limit);  // undoing too keeps the limit
                passed.push_back(shown(document));
                if (limit > 6000) QCOMPARE(passed.back(), afterStep[document.history().index()]);
            }
            // Redoing passes them again backwards, as far as the steps kept reach: under the
            // small limit the last ones were dropped.
            for (std::size_t back = passed.size() - 1; document.history().canRedo();) {
                document.redo();
                QVERIFY(back > 0);
                QCOMPARE(shown(document), passed[--back]);
            }
            if (limit > 6000) QCOMPARE(shown(document), end);
            QCOMPARE(document.wallGenerator().state(), generator);  // walls go on, not back
        }
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "test_history.moc"
