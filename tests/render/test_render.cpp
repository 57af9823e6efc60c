#include "frame_prediction.h"
#include "level.h"
#include "level_renderer.h"
#include "minimap_dots.h"
#include "room_blocks.h"
#include "sprite_sheet.h"
#include "tile_codes.h"
#include "tools.h"

#include <QPainter>
#include <QTest>

#include <array>

namespace {

// Sheet cell n is filled with a colour of its own, so painted pixels name their cell.
QRgb cellColour(int n) {
    return qRgb(n, 255 - n, 99);
}
SpriteSheet numberedSheet(int cellSide) {
    QImage image(SheetColumns * cellSide, SheetRows * cellSide, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int n = 0; n < SheetCellCount; ++n)
        painter.fillRect((n % 10) * cellSide, (n / 10) * cellSide, cellSide, cellSide,
                         QColor(cellColour(n)));
    return SpriteSheet(image);
}

// Cells as (x, y, code); code H stands for any horizontal straight piece, V any vertical one.
using Cells = QList<std::array<int, 3>>;
constexpr int H = -1, V = -5;

struct Fixture {
    explicit Fixture(int width, int height) {
        level.reset(width, height);
        renderer.map().resize(width, height);
        renderer.minimap().resize(width, height);
    }
    void draw(const Cells& cells) {
        for (auto [x, y, tool] : cells) renderer.tools().applyTool(x, y, tool);
    }
    // The cells that do not hold what `cells` expects, as "(x, y): got g", or nothing.
    QString mismatches(const Cells& cells) const {
        QString text;
        for (auto [x, y, code] : cells) {
            const int got = level.cell(x, y);
            if (code < 0 ? got < -code || got > 3 - code : got != code)
                text += QString("(%1, %2): got %3 ").arg(x).arg(y).arg(got);
        }
        return text;
    }
    Level level;
    LevelRenderer renderer{level};
};

}  // namespace

class RenderTest : public QObject {
    Q_OBJECT

  private slots:
    void wallsJoinTheirNeighbours_data() {
        QTest::addColumn<Cells>("stored");  // codes put into the grid without drawing
        QTest::addColumn<Cells>("draws");   // tools drawn in order
        QTest::addColumn<Cells>("expected");
        const Cells run = {{5, 5, 1}, {6, 5, 1}, {7, 5, 1}};
        const Cells cross = {{4, 10, 1}, {6, 10, 1}, {5, 11, 1}, {5, 9, 1}, {5, 10, 1}};
        const Cells stale = {{10, 3, 15}, {10, 4, 17}, {10, 5, 16}};  // (10, 4) is no end
        // Straight runs and corners are the frame's; these are joins a frame never makes.
        QTest::newRow("gap") << Cells{} << run + Cells{{6, 5, 0}}
                             << Cells{{6, 5, 0}, {5, 5, 14}, {7, 5, 14}};
        QTest::newRow("crossing") << Cells{} << cross << Cells{{5, 10, 13}};
        QTest::newRow("junction") << Cells{} << cross + Cells{{5, 9, 0}} << Cells{{5, 10, 10}};
        QTest::newRow("diagonals stay")
            << Cells{{3, 12, 17}} << cross + Cells{{5, 11, 0}, {4, 11, 1}}
            << Cells{{5, 10, 9}, {4, 11, 16}, {4, 10, 21}, {3, 12, 17}};
        QTest::newRow("column 0 is no neighbour")
            << Cells{{0, 8, 1}} << Cells{{1, 8, 1}} << Cells{{1, 8, 14}};
        QTest::newRow("a room reshapes around its top-left cell")
            << Cells{} << Cells{{4, 15, 1}, {5, 15, 1}, {7, 16, 1}, {8, 16, 1}, {5, 15, 2}}
            << Cells{{5, 15, 30}, {4, 15, 14}, {7, 16, 42}, {8, 16, 17}};
        QTest::newRow("a tool of no kind reshapes")
            << stale << Cells{{11, 4, 50}}
            << Cells{{11, 4, 0}, {10, 4, V}, {10, 3, 15}, {10, 5, 16}};
    }
    void wallsJoinTheirNeighbours() {
        QFETCH(Cells, stored);
        QFETCH(Cells, draws);
        QFETCH(Cells, expected);
        Fixture f(20, 20);
        for (auto [x, y, code] : stored) f.level.setCell(x, y, qint16(code));
        f.draw(draws);
        QCOMPARE(f.mismatches(expected), QString());
    }

    void heroToolKeepsOneHero() {
        Fixture f(20, 20);
        f.level.setCell(12, 7, HeroCode);
        f.level.setHero(QPoint(12, 7));
        f.level.setCell(13, 7, 17);  // a stale piece that moving the hero away leaves alone
        f.draw({{3, 3, HeroCode}, {3, 3, HeroCode}});
        QCOMPARE(f.mismatches({{12, 7, 0}, {3, 3, HeroCode}, {13, 7, 17}}), QString());
        QCOMPARE(f.level.hero(), std::optional(QPoint(3, 3)));
        Fixture fresh(20, 20);
        fresh.draw({{4, 4, HeroCode}});
        QCOMPARE(fresh.renderer.map().cellAt(0, 0), 0);  // an unset hero reads as (0, 0)
    }

    void redrawPaintsTheLevelAndItsFrame_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("square") << QSize(20, 20);
        QTest::newRow("wide") << QSize(20, 13);
        QTest::newRow("smallest frame") << QSize(3, 3);
    }
    void redrawPaintsTheLevelAndItsFrame() {
        QFETCH(QSize, size);
        const int w = size.width(), h = size.height();
        Fixture f(1, 1);
        f.level.reset(w, h);
        QVERIFY(f.renderer.repaintGrid());
        f.renderer.drawFrame(WallToolCode);
        // Every straight piece of the frame is drawn at random, so this pins the generator.
        const auto frame = predictedFrame(w, h);
        for (int y = 0; y <= h; ++y)
            for (int x = 0; x <= w; ++x) {
                const auto piece = frame.find({x, y});
                QCOMPARE(f.level.cell(x, y), piece == frame.end() ? 0 : piece->second);
                if (x < w && y < h) QCOMPARE(f.renderer.map().cellAt(x, y), f.level.cell(x, y));
            }
        QCOMPARE(f.renderer.map().pixelSize(), QSize(64 * w, 64 * h));
        QCOMPARE(f.renderer.minimap().pixelSize(), QSize(6 * w, 6 * h));
        QCOMPARE(f.renderer.minimap().dotAt(1, 1), qRgb(0, 0, 0));
        QCOMPARE(f.renderer.minimap().dotAt(2, 2), MinimapBackground);
    }

    void roomsAreLaidAsBlocks_data() {
        QTest::addColumn<int>("room");
        QTest::addColumn<QPoint>("at");         // top-left cell on a 20 x 20 level
        QTest::addColumn<QList<int>>("block");  // row by row
        QTest::newRow("A") << 0 << QPoint(5, 5)
                           << QList<int>{30, 31, 32, 40, 41, 42, 50, 51, 52, 60, 114, 62};
        QTest::newRow("G") << 6 << QPoint(0, 0)
                           << QList<int>{96, 97, 98, 99, 106, 107, 108, 109, 116, 117, 114, 119};
        // The second column lies in the margin, the others beyond it.
        QTest::newRow("H cut off")
            << 7 << QPoint(19, 12)
            << QList<int>{110, 111, 112, 113, 120, 121, 122, 123, 130, 114, 132, 133};
    }
    void roomsAreLaidAsBlocks() {
        QFETCH(int, room);
        QFETCH(QPoint, at);
        QFETCH(QList<int>, block);
        const int columns = room < 4 ? 3 : 4;
        QCOMPARE(toolFootprint(FirstRoomTool + room), QSize(columns, 12 / columns));
        Fixture f(20, 20);
        f.draw({{at.x(), at.y(), FirstRoomTool + room}});
        Cells laid;
        for (int i = 0; i < 12; ++i) {
            const int dx = i % columns, dy = i / columns;
            QCOMPARE(roomBlockCode(room, dx, dy), block[i]);
            if (at.x() + dx <= 20) laid << std::array{at.x() + dx, at.y() + dy, block[i]};
        }
        QCOMPARE(f.mismatches(laid), QString());
    }

    void minimapDotsOfCodesWithoutAColour() {
        Fixture f(30, 20);
        MinimapCanvas& minimap = f.renderer.minimap();
        for (auto [code, colour] : {std::pair{1, qRgb(0, 0, 0)}, {0, MinimapBackground}}) {
            plotMinimapCell(minimap, 2, 2, code);
            plotMinimapCell(minimap, 3, 3, 139);  // no colour of its own: the last one stays
            QCOMPARE(minimap.dotAt(3, 3), colour);
        }
        // The items lie inside the rooms' range and keep a colour of their own.
        const auto colour = [](int code) { return minimapColourFor(code, MinimapBackground); };
        QVERIFY(colour(124) != colour(123) && colour(127) == colour(124) &&
                colour(128) == colour(123));
    }

    void canvasesPaintWhatWasDrawn() {
        Fixture f(5, 4);
        f.renderer.sprites().paintSprite(3, 2, 25);
        f.renderer.sprites().paintSprite(0, 0, 0);
        f.renderer.sprites().paintSprite(1, 1, 1);
        f.renderer.sprites().paintSprite(5, 4, HeroCode);
        QImage image(5 * 64, 4 * 64, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        f.renderer.map().paint(painter, QRect(0, 0, 256, 256), numberedSheet(TileSize));
        QCOMPARE(image.pixel(192, 128), cellColour(25));
        QCOMPARE(image.pixel(255, 191), cellColour(25));
        QCOMPARE(image.pixel(63, 63), cellColour(0));
        QCOMPARE(image.pixel(200, 100), MapBackground);
        QCOMPARE(image.pixel(256, 10), QColor(Qt::magenta).rgb());  // outside the exposed part
        // A sheet of another size: each cell at its own size, kept inside its square.
        for (int side : {32, 128}) {
            image.fill(Qt::magenta);
            f.renderer.map().paint(painter, QRect(192, 128, 64, 64), numberedSheet(side));
            QCOMPARE(image.pixel(192 + 20, 128 + 20), cellColour(25));
            QCOMPARE(image.pixel(192 + 40, 128 + 40), side == 32 ? MapBackground : cellColour(25));
        }
        // Every pixel of an exposed part that starts and ends inside dots shows the dot of the
        // cell nearest to it (ties to the right and below); nothing around it changes.
        image.fill(Qt::magenta);
        const QRect exposed(4, 5, 25, 17);
        f.renderer.minimap().paint(painter, exposed);
        for (int py = 0; py < 30; ++py)
            for (int px = 0; px < 34; ++px)
                QCOMPARE(image.pixel(px, py),
                         exposed.contains(px, py)
                             ? f.renderer.minimap().dotAt((px + 3) / 6, (py + 3) / 6)
                             : QColor(Qt::magenta).rgb());
    }
};

QTEST_GUILESS_MAIN(RenderTest)
#include "test_render.moc"
