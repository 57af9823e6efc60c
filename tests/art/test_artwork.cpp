#include "built_in_sheet_pixels.h"
#include "file_bytes.h"
#include "room_blocks.h"
#include "tile_codes.h"
#include "tools.h"
#include "wall_pieces.h"

#include <QDirIterator>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

QImage cell(int n) {
    static const QImage sheet(":/sheet/EditPic.jpg");
    return sheet.copy(n % SheetColumns * 64, n / SheetColumns * 64, 64, 64);
}

// How far the 5 x 5 patch around `centre`, averaged to smooth JPEG noise away, is from `colour`.
double distance(const QImage& image, QPoint centre, QColor colour) {
    const QColor c = image.copy(centre.x() - 2, centre.y() - 2, 5, 5)
                         .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                         .pixelColor(0, 0);
    return std::hypot(c.red() - colour.red(), c.green() - colour.green(), c.blue() - colour.blue());
}
// The floor is light warm sand; a wall, with its cracks and moss, is anything far from that.
bool isWall(const QImage& image, QPoint at) {
    return distance(image, at, {196, 178, 140}) > 45;
}
// Room walls are the grey wall stone, far from every room's floor.
bool isStone(const QImage& image, QPoint at) {
    return distance(image, at, {98, 96, 108}) < 30;
}

}  // namespace

class ArtworkTest : public QObject {
    Q_OBJECT

  private slots:
    void picturesHaveTheirSizesAndFormats() {
        for (const Tool& tool : paletteTools()) {
            const QByteArray bytes = bytesOf(QStringLiteral(":/palette/%1.bmp").arg(tool.code));
            QVERIFY(bytes.startsWith("BM") && bytes.at(28) == 24);  // 24 bits a pixel, uncompressed
            const int side = (tool.code >= 27 && tool.code <= 29) ? 64 : 48;
            QCOMPARE(QImage::fromData(bytes).size(), QSize(side, side));
        }
        for (const char* name : {"new", "open", "save"})
            QCOMPARE(QImage(QStringLiteral(":/buttons/%1.bmp").arg(name)).size(), QSize(16, 16));
        for (int side : {32, 16}) {
            const QImage icon(QStringLiteral(":/icon/icon%1.png").arg(side));
            QCOMPARE(icon.size(), QSize(side, side));
            QVERIFY(icon.colorCount() > 0 && icon.colorCount() <= 16);
        }
        // The sheet's pixels linked into the program are the sheet as the image reader decodes it.
        const QImage decoded = QImage(":/sheet/EditPic.jpg").convertToFormat(QImage::Format_RGB32);
        QCOMPARE(decoded.size(), QSize(BuiltInSheetWidth, BuiltInSheetHeight));
        const auto pixels = builtInSheetPixels();
        QVERIFY(std::equal(pixels.begin(), pixels.end(), decoded.constBits(),
                           decoded.constBits() + decoded.sizeInBytes()));
    }

    // Every cell shows something; a wall piece reaches exactly the edges of its arms; a room's
    // bottom wall runs through every bottom cell, the doorway's posts too, open only there.
    void sheetCellsShowWhatTheyAre() {
        for (int code = 0; code < SheetCellCount; ++code) {
            const QImage picture = cell(code);
            const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
            const auto [darkest, lightest] =
                std::minmax_element(grey.constBits(), grey.constBits() + grey.sizeInBytes());
            QVERIFY2(*lightest - *darkest > 12, qPrintable(QString::number(code)));
            if (code > LastWallPiece) continue;
            const WallArms reached = {isWall(picture, {2, 32}), isWall(picture, {32, 61}),
                                      isWall(picture, {61, 32}), isWall(picture, {32, 2})};
            QCOMPARE(std::tuple(code, isWall(picture, {32, 32}), wallKey(reached)),
                     std::tuple(code, isWallPiece(code), wallKey(armsOfPiece(code))));
        }
        for (int room = 0; room < RoomCount; ++room) {
            const RoomBlock block = roomBlock(room);
            for (int dx = 0; dx < block.columns; ++dx) {
                const QImage picture = cell(roomBlockCode(room, dx, block.rows - 1));
                QVERIFY(isStone(picture, {3, 58}) && isStone(picture, {60, 58}));
                QCOMPARE(std::pair(room, isStone(picture, {32, 58})),
                         std::pair(room, dx != block.doorwayColumn));
            }
        }
        // A ring laid of pieces has no gap along the middle lines of its four sides.
        const int ring[25] = {21, 1, 2, 3, 20, 5, 0, 0,  0, 6, 7, 0, 0,
                              0,  8, 6, 0, 0,  0, 5, 22, 4, 3, 2, 19};  // row by row
        QImage laid(320, 320, QImage::Format_RGB32);
        QPainter painter(&laid);
        for (int i = 0; i < 25; ++i) painter.drawImage(i % 5 * 64, i / 5 * 64, cell(ring[i]));
        for (int a = 32; a <= 288; a += 2)
            for (QPoint at : {QPoint(a, 32), QPoint(a, 288), QPoint(32, a), QPoint(288, a)})
                QCOMPARE(std::pair(at, isWall(laid, at)), std::pair(at, true));
    }

    void theGeneratorDrawsTheSameEveryTime() {
        QTemporaryDir first, second;  // the second run also lays the sample level
        const QString png = second.filePath("sample-level.png");
        QCOMPARE(QProcess::execute(VARNOK_ART_PROGRAM, {first.path()}), 0);
        QCOMPARE(QProcess::execute(VARNOK_ART_PROGRAM, {second.path(), "--sample-level", png}), 0);
        QVERIFY(!QImage(png).isNull());
        QDirIterator it(first.path(), QDir::Files, QDirIterator::Subdirectories);
        int files = 0;
        for (; it.hasNext(); ++files) {
            const QString a = it.next();
            QCOMPARE(bytesOf(second.path() + a.mid(first.path().size())), bytesOf(a));
        }
        QCOMPARE(files, 2 + 26 + 3 + 6);  // the sheet and its pixels, palette, buttons, icons
    }
};

QTEST_GUILESS_MAIN(ArtworkTest)
#include "test_artwork.moc"
