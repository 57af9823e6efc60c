#include "block_picture.h"
#include "frame_prediction.h"
#include "level.h"
#include "level_block.h"
#include "level_renderer.h"
#include "minimap_dots.h"
#include "room_blocks.h"
#include "sprite_sheet.h"
#include "tile_codes.h"
#include "zoomed_tiles.h"

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

// Cells as (x, y, code); code V stands for any look of the vertical straight piece.
using Cells = QList<std::array<int, 3>>;
constexpr int V = -5;

struct Fixture {
    explicit Fixture(int width, int height) {
        level.reset(width, height);
        renderer.map().resize(width, height);
        renderer.minimap().resize(width, height);
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
    void toolsReshapeTheirNeighbours() {
        // Cells stored without drawing (a hero is set too), tools drawn in order, cells expected.
        const auto row = [](const char* name, const Cells& stored, const Cells& draws,
                            const Cells& expected) {
            Fixture f(20, 20);
            for (auto [x, y, code] : stored) {
                f.level.setCell(x, y, qint16(code));
                if (code == HeroCode) f.level.setHero(QPoint(x, y));
            }
            for (auto [x, y, tool] : draws) f.renderer.tools().applyTool(x, y, tool);
            QCOMPARE(std::pair(name, f.mismatches(expected)), std::pair(name, QString()));
        };
        const Cells cross = {{4, 10, 1}, {6, 10, 1}, {5, 11, 1}, {5, 9, 1}, {5, 10, 1}};
        // Straight runs and corners are the frame's; these are joins a frame never makes.
        row("junction", Cells{}, cross + Cells{{5, 9, 0}}, Cells{{5, 10, 10}});
        row("diagonals stay", Cells{{3, 12, 17}}, cross + Cells{{5, 11, 0}, {4, 11, 1}},
            Cells{{5, 10, 9}, {4, 11, 16}, {4, 10, 21}, {3, 12, 17}});
        row("a room reshapes around its top-left cell", Cells{},
            Cells{{4, 15, 1}, {5, 15, 1}, {7, 16, 1}, {8, 16, 1}, {5, 15, 2}},
            Cells{{5, 15, 30}, {4, 15, 14}, {7, 16, 42}, {8, 16, 17}});
        row("a tool of no kind reshapes a stale end", Cells{{10, 3, 15}, {10, 4, 17}, {10, 5, 16}},
            Cells{{11, 4, 50}}, Cells{{11, 4, 0}, {10, 4, V}, {10, 3, 15}, {10, 5, 16}});
        // There is one hero: its old cell becomes floor, and the pieces around are left alone.
        row("the hero moves", Cells{{12, 7, HeroCode}, {13, 7, 17}},
            Cells{{3, 3, HeroCode}, {3, 3, HeroCode}},
            Cells{{12, 7, 0}, {3, 3, HeroCode}, {13, 7, 17}});
        row("an unset hero is at (0, 0)", Cells{{0, 0, 17}},
            Cells{{3, 3, HeroCode}, {6, 6, HeroCode}},
            Cells{{0, 0, 0}, {3, 3, 0}, {6, 6, HeroCode}});
    }

    // Every straight piece of the frame is drawn at random, so this pins the generator too.
    void theFrameIsDrawnAsPredicted() {
        for (const auto& [w, h] : {std::pair(20, 20), {20, 13}, {3, 3}}) {
            Fixture f(w, h);
            f.renderer.drawFrame(WallToolCode);
            const auto frame = predictedFrame(w, h);
            for (int y = 0; y <= h; ++y)
                for (int x = 0; x <= w; ++x)
                    QCOMPARE(f.level.cell(x, y), frame.count({x, y}) ? frame.at({x, y}) : 0);
        }
    }

    // Each room's block row by row, laid from its top-left cell on a 20 x 20 level.
    void roomsAreLaidAsBlocks() {
        const std::tuple<int, QPoint, QList<int>> rooms[] = {
            {0, {5, 5}, {30, 31, 32, 40, 41, 42, 50, 51, 52, 60, 114, 62}},
            {6, {0, 0}, {96, 97, 98, 99, 106, 107, 108, 109, 116, 117, 114, 119}},
            // H: its second column lies in the margin, the others beyond it.
            {7, {19, 12}, {110, 111, 112, 113, 120, 121, 122, 123, 130, 114, 132, 133}}};
        for (const auto& [room, at, block] : rooms) {
            const int columns = room < 4 ? 3 : 4;
            Fixture f(20, 20);
            f.renderer.tools().applyTool(at.x(), at.y(), FirstRoomTool + room);
            Cells laid;
            for (int i = 0; i < 12; ++i) {
                const int dx = i % columns, dy = i / columns;
                QCOMPARE(std::pair(room, roomBlockCode(room, dx, dy)), std::pair(room, block[i]));
                if (at.x() + dx <= 20) laid << std::array{at.x() + dx, at.y() + dy, block[i]};
            }
            QCOMPARE(f.mismatches(laid), QString());
        }
    }

    void canvasesPaintWhatWasDrawn() {
        Fixture f(5, 4);
        f.renderer.sprites().paintSprite(3, 2, 25);  // whole maps: the level tool's render test
        QImage image(5 * 64, 4 * 64, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        f.renderer.map().paint(painter, QRect(0, 0, 256, 256), numberedSheet(TileSize));
        QCOMPARE(image.pixel(192, 128), cellColour(25));
        QCOMPARE(image.pixel(200, 100), MapBackground);
        QCOMPARE(image.pixel(256, 10), QColor(Qt::magenta).rgb());  // outside the exposed part
        // A sheet of another size: each cell at its own size, kept inside its square.
        for (int side : {32, 128}) {
            image.fill(Qt::magenta);
            f.renderer.map().paint(painter, QRect(192, 128, 64, 64), numberedSheet(side));
            QCOMPARE(image.pixel(192 + 20, 128 + 20), cellColour(25));
            QCOMPARE(image.pixel(192 + 40, 128 + 40), side == 32 ? MapBackground : cellColour(25));
        }
        // An exposed part of the minimap shows each pixel's nearest dot (ties right and below).
        image.fill(Qt::magenta);
        const QRect exposed(4, 5, 25, 17);
        f.renderer.minimap().paint(painter, exposed);
        for (int py = 0; py < 30; ++py)
            for (int px = 0; px < 34; ++px)
                QCOMPARE(image.pixel(px, py),
                         exposed.contains(px, py)
                             ? f.renderer.minimap().dotAt((px + 3) / 6, (py + 3) / 6)
                             : QColor(Qt::magenta).rgb());
        // A code without a colour of its own keeps the colour last drawn.
        for (auto [code, colour] : {std::pair{1, qRgb(0, 0, 0)}, {0, MinimapBackground}}) {
            plotMinimapCell(f.renderer.minimap(), 2, 2, code);
            plotMinimapCell(f.renderer.minimap(), 3, 3, 139);
            QCOMPARE(f.renderer.minimap().dotAt(3, 3), colour);
        }
    }

    // Zoomed out, every exposed pixel is its cell's tile pixel, also in cells cut at the edges.
    void zoomedMapShowsEachCellsTile() {
        Fixture f(9, 7);
        for (int y = 0; y < 7; ++y)  // neighbours differ; (4, 3) stays cleared
            for (int x = 0; x < 9; ++x)
                if (x != 4 || y != 3) f.renderer.sprites().paintSprite(x, y, x + 9 * y);
        QImage shaded(SheetColumns * TileSize, SheetRows * TileSize, QImage::Format_RGB32);
        for (int y = 0; y < shaded.height(); ++y)  // every pixel of a cell differs
            for (int x = 0; x < shaded.width(); ++x)
                shaded.setPixel(x, y, qRgb(x % 64 * 4, y % 64 * 4, x / 64 + y / 64 * 10));
        const SpriteSheet sheet(shaded);
        ZoomedTiles zoomed(sheet);
        QImage scratch;
        for (int step = 1; step < ZoomStepCount; ++step) {
            const int c = tileSizeAt(step);
            const QImage& tiles = zoomed.at(step);
            QCOMPARE(qBlue(tiles.pixel(5 * c + c / 2, 2 * c + c / 2)), 25);  // cell 25
            // Cut left, right or at the top; past the surface right or below; rows odd or even.
            for (const QRect exposed : {QRect(QPoint(c + 1, c / 2), QPoint(9 * c - 2, 7 * c + 3)),
                                        QRect(QPoint(1, 1), QPoint(9 * c + 4, 7 * c - 2))}) {
                QImage image(9 * c + 5, 7 * c + 5, QImage::Format_RGB32);
                image.fill(Qt::magenta);
                QPainter painter(&image);
                f.renderer.map().paintZoomed(painter, exposed, tiles, c, scratch);
                for (int py = 0; py < image.height(); ++py)
                    for (int px = 0; px < image.width(); ++px) {
                        QRgb expected = QColor(Qt::magenta).rgb();
                        if (exposed.contains(px, py) && px < 9 * c && py < 7 * c) {
                            const int cell = f.renderer.map().cellAt(px / c, py / c);
                            expected = cell == MapCanvas::Cleared
                                           ? MapBackground
                                           : tiles.pixel(cell % SheetColumns * c + px % c,
                                                         cell / SheetColumns * c + py % c);
                        }
                        if (image.pixel(px, py) != expected)
                            QFAIL(qPrintable(QString::asprintf("step %d: (%d, %d)", step, px, py)));
                    }
            }
        }
    }
    // A block's picture: the largest zoom step within 2048 pixels, each cell its code's picture.
    void blockPictureShowsEachCell() {
        const int steps[][3] = {{1, 1, 0},  {32, 5, 0},     {5, 33, 1}, {64, 64, 1},
                                {65, 2, 2}, {1000, 1000, 5}};  // 32 x 5: just 2048 wide
        for (const auto& [w, h, step] : steps)
            QCOMPARE(std::tuple(w, h, blockPictureZoomStep(w, h)), std::tuple(w, h, step));
        const SpriteSheet sheet = numberedSheet(TileSize);
        ZoomedTiles zoomed(sheet);
        for (const QSize size : {QSize(3, 2), QSize(31, 33), QSize(70, 9), QSize(1000, 2)}) {
            LevelBlock block{size.width(), size.height(), {}};
            for (int i = 0; i < size.width() * size.height(); ++i)
                block.codes.push_back(qint16(i % 7 == 6 ? SheetCellCount + i % 3 : i % 139));
            const int c = tileSizeAt(blockPictureZoomStep(size.width(), size.height()));
            const QImage picture = blockPicture(block, sheet, zoomed);
            QCOMPARE(picture.size(), size * c);
            QVERIFY(std::max(picture.width(), picture.height()) <= 2048);
            for (int py = 0; py < picture.height(); ++py)
                for (int px = 0; px < picture.width(); ++px) {
                    const int code = block.at(px / c, py / c);
                    const QRgb expected = hasPicture(code) ? cellColour(code) : MapBackground;
                    if (picture.pixel(px, py) != expected)
                        QFAIL(qPrintable(QString::asprintf("%d x %d: (%d, %d)", size.width(),
                                                           size.height(), px, py)));
                }
        }
    }
};

QTEST_GUILESS_MAIN(RenderTest)
#include "test_render.moc"
