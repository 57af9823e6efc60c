#include "frame_prediction.h"
#include "level.h"
#include "level_renderer.h"
#include "minimap_dots.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QPainter>
#include <QTest>

namespace {

// Sheet cell n is filled with a colour of its own, so painted pixels name their cell.
QRgb cellColour(int n) {
    return qRgb(n, 255 - n, 99);
}
SpriteSheet numberedSheet(int cellSide = TileSize) {
    QImage image(SheetColumns * cellSide, SheetRows * cellSide, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int n = 0; n < SheetCellCount; ++n)
        painter.fillRect((n % 10) * cellSide, (n / 10) * cellSide, cellSide, cellSide,
                         QColor(cellColour(n)));
    return SpriteSheet(image);
}

// Cells as (x, y, code); code -1 stands for any horizontal straight piece, -5 any vertical one.
using Cells = std::initializer_list<std::array<int, 3>>;

struct Fixture {
    explicit Fixture(int width, int height) : renderer(level, sheet) {
        level.Allocate(width, height);
        renderer.map.resize(width, height);
        renderer.minimap.resize(width, height);
    }
    void draw(int x, int y, int tool) { renderer.cells.DrawCell(x, y, tool); }
    void draw(Cells cells) {
        for (auto [x, y, tool] : cells) draw(x, y, tool);
    }
    int at(int x, int y) const { return level.cell(x, y); }
    void expect(Cells cells) const {
        for (auto [x, y, code] : cells) {
            const int got = at(x, y);
            const bool straight = code < 0 && got >= -code && got <= 3 - code;
            QCOMPARE(std::pair(QPoint(x, y), got), std::pair(QPoint(x, y), straight ? got : code));
        }
    }
    Level level;
    SpriteSheet sheet = numberedSheet();
    LevelRenderer renderer;
};

}  // namespace

class RenderTest : public QObject {
    Q_OBJECT

  private slots:
    void wallsJoinTheirNeighbours() {
        Fixture f(20, 20);
        f.draw({{5, 5, WallToolCode}, {6, 5, WallToolCode}, {7, 5, WallToolCode}});
        f.expect({{5, 5, 18}, {6, 5, -1}, {7, 5, 17}});
        f.draw(6, 5, FloorCode);
        f.expect({{6, 5, 0}, {5, 5, 14}, {7, 5, 14}});

        // Junctions and the crossing around (5, 10); a diagonal is never reshaped.
        f.draw({{4, 10, 1}, {6, 10, 1}, {5, 11, 1}, {5, 9, 1}, {5, 10, 1}});
        f.expect({{5, 10, 13}});
        f.draw(5, 9, 0);
        f.expect({{5, 10, 10}});
        f.level.setCell(3, 12, 17);  // a piece that reshaping would replace
        f.draw({{5, 9, 1}, {5, 11, 0}, {4, 11, 1}});
        f.expect({{5, 10, 9}, {4, 10, 21}, {3, 12, 17}});  // (4, 10): walls below and right

        // A vertical run, and column 0 that never counts as a neighbour.
        f.draw({{10, 3, 1}, {10, 4, 1}, {10, 5, 1}});
        f.level.setCell(0, 8, 1);
        f.draw(1, 8, 1);
        f.expect({{10, 3, 15}, {10, 4, -5}, {10, 5, 16}, {1, 8, 14}});

        // A room reshapes only the neighbours of its top-left cell.
        f.draw({{4, 15, 1}, {5, 15, 1}, {7, 16, 1}, {8, 16, 1}, {5, 15, 2}});
        f.expect({{5, 15, 30}, {4, 15, 14}, {7, 16, 42}, {8, 16, 17}});

        // A tool outside the table paints nothing but still reshapes the neighbours.
        const std::uint32_t before = f.renderer.random.state();
        f.draw(11, 4, 50);
        f.expect({{11, 4, 0}});
        QVERIFY(f.renderer.random.state() != before);  // (10, 4) was shaped anew
    }

    void heroToolKeepsOneHero() {
        Fixture f(20, 20);
        f.level.setCell(12, 7, HeroCode);
        f.level.HeroX = 12, f.level.HeroY = 7;
        f.level.setCell(13, 7, 17);  // a stale piece that moving the hero away leaves alone
        f.draw({{3, 3, HeroCode}, {3, 3, HeroCode}});
        f.expect({{12, 7, 0}, {3, 3, HeroCode}, {13, 7, 17}});
        QVERIFY(f.level.HeroX == 3 && f.level.HeroY == 3);
        Fixture fresh(20, 20);
        fresh.draw(4, 4, HeroCode);
        QCOMPARE(fresh.renderer.map.cellAt(0, 0), 0);  // an unset hero reads as (0, 0)
    }

    void generatorFollowsItsFormula() {
        RandomGenerator random;
        std::uint64_t x = 327680;
        for (int i = 0; i < 5; ++i) {
            x = (1140671485ull * x + 12820163ull) % 16777216ull;
            QCOMPARE(random.next(), float(x) / 16777216.0f);
        }
        // Straight pieces split 1/2, 1/6, 1/6, 1/6; the first costs one draw, the others two.
        Fixture f(3, 3);
        int counts[9] = {};
        for (int i = 0; i < 60000; ++i) {
            RandomGenerator oneDraw = f.renderer.random;
            oneDraw.next();
            const int piece = f.renderer.cells.RandomVariant();
            QCOMPARE(piece == 1, oneDraw.state() == f.renderer.random.state());
            ++counts[piece];
            ++counts[f.renderer.cells.RandomVariant2()];
        }
        for (int piece : {1, 5}) QVERIFY(qAbs(counts[piece] - 30000) < 600);
        for (int piece : {2, 3, 4, 6, 7, 8}) QVERIFY(qAbs(counts[piece] - 10000) < 500);
    }

    void redrawPaintsTheLevelAndItsFrame() {
        for (auto [w, h] : {std::pair{20, 20}, {20, 13}, {3, 3}}) {
            Fixture f(w, h);
            f.renderer.map.resize(1, 1), f.renderer.minimap.resize(1, 1);
            int presses = 0;
            f.renderer.RedrawLevelCells([&] { return ++presses, WallToolCode; });
            QCOMPARE(presses, 1);
            // Every straight piece of the frame is drawn at random, so this pins the generator.
            const auto frame = predictedFrame(w, h);
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x) {
                    const auto piece = frame.find({x, y});
                    QCOMPARE(f.at(x, y), piece == frame.end() ? 0 : piece->second);
                    if (x < w && y < h) QCOMPARE(f.renderer.map.cellAt(x, y), f.at(x, y));
                }
            QCOMPARE(f.renderer.map.pixelSize(), QSize(64 * w, 64 * h));
            QCOMPARE(f.renderer.minimap.pixelSize(), QSize(6 * w, 6 * h));
            QCOMPARE(f.renderer.minimap.dotAt(1, 1), qRgb(0, 0, 0));
            QCOMPARE(f.renderer.minimap.dotAt(2, 2), MinimapBackground);
        }

        // A code without a picture stops the redraw; what was painted stays painted.
        Fixture bad(6, 6);
        bad.level.setCell(2, 3, 200);
        bad.level.setCell(1, 1, 25);
        bool pressed = false;
        QVERIFY_THROWS_EXCEPTION(SheetCellError,
                                 bad.renderer.RedrawLevelCells([&] { return pressed = true, 1; }));
        QVERIFY(!pressed);
        QCOMPARE(bad.renderer.map.cellAt(1, 1), 25);
        QCOMPARE(bad.renderer.map.cellAt(2, 2), 0);
        QCOMPARE(bad.renderer.map.cellAt(2, 3), MapCanvas::Cleared);
        QCOMPARE(bad.at(2, 3), 200);
    }

    void roomsAreLaidAsBlocks() {
        Fixture f(20, 20);
        f.renderer.sprites.PaintTileSprite(5, 5, 0);
        const int roomA[4][3] = {{30, 31, 32}, {40, 41, 42}, {50, 51, 52}, {60, 114, 62}};
        for (int dy = 0; dy < 4; ++dy)
            for (int dx = 0; dx < 3; ++dx) QCOMPARE(f.at(5 + dx, 5 + dy), roomA[dy][dx]);
        QCOMPARE(f.renderer.minimap.dotAt(6, 8), qRgb(0, 128, 0));
        f.renderer.sprites.PaintTileSprite(5, 5, 6);
        f.renderer.sprites.PaintTileSprite(17, 10, 7);  // fourth column in the margin
        f.renderer.sprites.PaintTileSprite(19, 12, 7);  // cut off at the right
        f.expect({{5, 7, 116}, {6, 7, 117}, {7, 7, 114}, {8, 7, 119}});
        f.expect({{20, 10, 113}, {19, 12, 110}, {20, 12, 111}, {0, 13, 0}});
    }

    void minimapColoursFollowTheTable() {
        Fixture f(30, 20);
        const std::pair<int, QRgb> cases[] = {
            {127, qRgb(0, 0, 255)},   {128, qRgb(0, 128, 0)}, {123, qRgb(0, 128, 0)},
            {124, qRgb(0, 0, 255)},   {22, qRgb(0, 0, 0)},    {23, qRgb(128, 0, 0)},
            {29, qRgb(128, 0, 0)},    {30, qRgb(0, 128, 0)},  {133, qRgb(0, 128, 0)},
            {134, qRgb(0, 128, 128)}, {135, qRgb(255, 0, 0)}, {138, qRgb(255, 0, 0)},
            {0, MinimapBackground}};
        for (auto [code, colour] : cases) {
            f.renderer.sprites.PaintSprite(25, 5, code);  // beyond the height, inside the width
            QCOMPARE(f.renderer.minimap.dotAt(25, 5), colour);
        }
        for (auto [code, colour] : {std::pair{1, qRgb(0, 0, 0)}, {0, MinimapBackground}}) {
            PlotMinimapCell(f.renderer.minimap, 2, 2, code);
            PlotMinimapCell(f.renderer.minimap, 3, 3, 200);  // no colour: the last one stays
            QCOMPARE(f.renderer.minimap.dotAt(3, 3), colour);
        }

        // The painter's bounds include the margin and nothing beyond it; a cell one step
        // outside a row would land at the end of the row above or the start of the one below.
        f.renderer.sprites.PaintSprite(-1, 4, 25);
        f.renderer.sprites.PaintSprite(31, 4, 25);
        f.renderer.sprites.PaintSprite(30, 20, 25);
        f.expect({{30, 3, 0}, {0, 5, 0}, {30, 20, 25}});
    }

    void canvasesPaintWhatWasDrawn() {
        Fixture f(5, 4);
        f.renderer.sprites.PaintSprite(3, 2, 25);
        f.renderer.sprites.PaintSprite(0, 0, 0);
        QImage image(5 * 64, 4 * 64, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        f.renderer.map.paint(painter, QRect(0, 0, 256, 256), f.sheet);
        QCOMPARE(image.pixel(192, 128), cellColour(25));
        QCOMPARE(image.pixel(255, 191), cellColour(25));
        QCOMPARE(image.pixel(63, 63), cellColour(0));
        QCOMPARE(image.pixel(100, 100), MapBackground);
        QCOMPARE(image.pixel(256, 10), QColor(Qt::magenta).rgb());  // outside the exposed part

        // Every pixel of an exposed part that starts and ends inside dots shows the dot of
        // the cell nearest to it (ties to the right and below); nothing around it changes.
        f.renderer.sprites.PaintSprite(1, 1, 1);
        f.renderer.sprites.PaintSprite(5, 4, 135);
        image.fill(Qt::magenta);
        const QRect exposed(4, 5, 25, 17);
        f.renderer.minimap.paint(painter, exposed);
        for (int py = 0; py < 30; ++py)
            for (int px = 0; px < 34; ++px)
                QCOMPARE(image.pixel(px, py),
                         exposed.contains(px, py)
                             ? f.renderer.minimap.dotAt((px + 3) / 6, (py + 3) / 6)
                             : QColor(Qt::magenta).rgb());

        // A sheet of another size: each cell at its own size, kept inside its square.
        for (int side : {32, 128}) {
            const SpriteSheet other = numberedSheet(side);
            image.fill(Qt::magenta);
            f.renderer.map.paint(painter, QRect(192, 128, 64, 64), other);
            QCOMPARE(image.pixel(192 + 20, 128 + 20), cellColour(25));
            QCOMPARE(image.pixel(192 + 40, 128 + 40), side == 32 ? MapBackground : cellColour(25));
        }
        QVERIFY_THROWS_EXCEPTION(SheetCellError, f.sheet.cellRect(140));
    }
};

QTEST_GUILESS_MAIN(RenderTest)
#include "test_render.moc"
