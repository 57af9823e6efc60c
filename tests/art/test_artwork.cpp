#include <algorithm>
#include <cmath>
#include <vector>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QImage& sheet() {
    static const QImage image(":/sheet/EditPic.jpg");
    return image;
}

// The average colour of a 5 x 5 patch, which smooths JPEG noise away.
QColor patch(const QImage& image, QPoint centre) {
    int r = 0, g = 0, b = 0;
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx) {
            const QColor c = image.pixelColor(centre + QPoint(dx, dy));
            r += c.red(), g += c.green(), b += c.blue();
        }
    return QColor(r / 25, g / 25, b / 25);
}

QImage cell(int n) {
    return sheet().copy((n % 10) * 64, (n / 10) * 64, 64, 64);
}

double distance(QColor a, QColor b) {
    return std::hypot(a.red() - b.red(), a.green() - b.green(), a.blue() - b.blue());
}
// The floor is light warm sand; a wall, with its cracks and moss, is anything far from that.
bool isWall(QColor colour) {
    return distance(colour, QColor(196, 178, 140)) > 45;
}
// Room walls are the grey wall stone, far from every room's floor.
bool isStone(QColor colour) {
    return distance(colour, QColor(98, 96, 108)) < 30;
}

}  // namespace

class ArtworkTest : public QObject {
    Q_OBJECT

  private slots:
    void picturesHaveTheirSizesAndFormats() {
        QCOMPARE(sheet().size(), QSize(640, 896));
        const int codes[] = {0,   1, 23, 24, 25, 26, 134, 27, 28, 29,  124, 125, 126,
                             127, 2, 3,  4,  5,  6,  7,   8,  9,  135, 136, 137, 138};
        for (int code : codes) {
            QFile file(QStringLiteral(":/palette/%1.bmp").arg(code));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            QCOMPARE(bytes.left(2), QByteArray("BM"));
            QCOMPARE(int(bytes.at(28)), 24);  // bits per pixel, uncompressed
            const int side = (code >= 27 && code <= 29) ? 64 : 48;
            QCOMPARE(QImage::fromData(bytes).size(), QSize(side, side));
        }
        for (const char* name : {"new", "open", "save"})
            QCOMPARE(QImage(QStringLiteral(":/buttons/%1.bmp").arg(name)).size(), QSize(16, 16));
        for (int side : {32, 16}) {
            const QImage icon(QStringLiteral(":/icon/icon%1.png").arg(side));
            QCOMPARE(icon.size(), QSize(side, side));
            QVERIFY(icon.colorCount() > 0 && icon.colorCount() <= 16);
        }
    }

    void wallPiecesReachExactlyTheirArms() {
        // Arms left, below, right, above of pieces 1..22.
        const char* arms[23] = {"",     "1010", "1010", "1010", "1010", "0101", "0101", "0101",
                                "0101", "1011", "1110", "1101", "0111", "1111", "0000", "0100",
                                "0001", "1000", "0010", "1001", "1100", "0110", "0011"};
        const QPoint edges[4] = {{2, 32}, {32, 61}, {61, 32}, {32, 2}};
        for (int piece = 1; piece <= 22; ++piece) {
            const QImage picture = cell(piece);
            QVERIFY(isWall(patch(picture, {32, 32})));
            for (int edge = 0; edge < 4; ++edge)
                QVERIFY2(isWall(patch(picture, edges[edge])) == (arms[piece][edge] == '1'),
                         qPrintable(QStringLiteral("piece %1, edge %2").arg(piece).arg(edge)));
        }
        QVERIFY(!isWall(patch(cell(0), {32, 32})));

        // A ring of pieces laid 5 x 5 is wall all along its middle line.
        const int ring[5][5] = {{21, 1, 2, 3, 20},
                                {5, 0, 0, 0, 6},
                                {7, 0, 0, 0, 8},
                                {6, 0, 0, 0, 5},
                                {22, 4, 3, 2, 19}};
        QImage laid(320, 320, QImage::Format_RGB32);
        QPainter painter(&laid);
        for (int i = 0; i < 25; ++i)
            painter.drawImage(i % 5 * 64, i / 5 * 64, cell(ring[i / 5][i % 5]));
        for (int along = 32; along <= 288; along += 2)
            for (QPoint at :
                 {QPoint(along, 32), QPoint(along, 288), QPoint(32, along), QPoint(288, along)})
                QVERIFY2(isWall(patch(laid, at)),
                         qPrintable(QStringLiteral("gap at %1, %2").arg(at.x()).arg(at.y())));
    }

    void everyCellHasAPictureAndTheDoorwayFitsEveryRoom() {
        for (int n = 0; n < 140; ++n) {
            const QImage picture = cell(n);
            std::vector<int> greys;
            for (int i = 0; i < 64 * 64; ++i) greys.push_back(qGray(picture.pixel(i % 64, i / 64)));
            const auto [darkest, lightest] = std::minmax_element(greys.begin(), greys.end());
            QVERIFY2(*lightest - *darkest > 12,
                     qPrintable(QStringLiteral("cell %1 is blank").arg(n)));
        }
        // Bottom rows of the blocks: the doorway 114 takes the place of the listed cell. The
        // bottom wall runs unbroken through every cell, the doorway's posts included, and only
        // the doorway is open in the middle.
        const std::vector<int> bottoms[8] = {
            {60, 114, 62},     {63, 114, 65},     {100, 114, 102},      {103, 114, 105},
            {56, 114, 58, 59}, {86, 114, 88, 89}, {116, 117, 114, 119}, {130, 114, 132, 133}};
        for (const auto& bottom : bottoms)
            for (int code : bottom) {
                for (int x : {3, 60})
                    QVERIFY2(isStone(patch(cell(code), {x, 58})),
                             qPrintable(QStringLiteral("cell %1 at %2").arg(code).arg(x)));
                QCOMPARE(isStone(patch(cell(code), {32, 58})), code != 114);
            }
    }

    void theGeneratorDrawsTheSameEveryTime() {
        QTemporaryDir first, second;
        for (const QTemporaryDir* out : {&first, &second})
            QCOMPARE(QProcess::execute(VARNOK_ART_PROGRAM, {out->path()}), 0);
        int files = 0;
        QDirIterator it(first.path(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            QFile a(path), b(second.filePath(QDir(first.path()).relativeFilePath(path)));
            QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
            QCOMPARE(a.readAll(), b.readAll());
            ++files;
        }
        QCOMPARE(files, 1 + 26 + 3 + 6);  // the sheet, palette, buttons, icons
    }
};

QTEST_GUILESS_MAIN(ArtworkTest)
#include "test_artwork.moc"
