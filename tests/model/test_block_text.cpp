#include "block_text.h"
#include "block_texts.h"
#include "tile_codes.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

LevelBlock randomBlock(QRandomGenerator& random, int width, int height) {
    LevelBlock block{width, height, {}};
    block.codes.resize(std::size_t(width) * std::size_t(height));
    for (qint16& code : block.codes) code = qint16(random.bounded(SheetCellCount));
    return block;
}

}  // namespace

class BlockTextTest : public QObject {
    Q_OBJECT

  private slots:
    // Random blocks come back equal, also after their line ends or their bytes were changed
    // by a program on the way; the text holds the mark, the sizes and the level file's bytes.
    void randomBlocksRoundTrip() {
        QRandomGenerator random(24);
        QList<QSize> sizes = {{1, 1}, {1, 1000}, {1000, 1}, {1000, 3}, {7, 2}};
        for (int i = 0; i < 150; ++i)
            sizes.append(QSize(1 + random.bounded(40), 1 + random.bounded(40)));
        for (const QSize size : sizes) {
            const LevelBlock block = randomBlock(random, size.width(), size.height());
            const QByteArray text = encodeBlockText(block);
            const QByteArray header = "VARNOK-BLOK 1 " + QByteArray::number(size.width()) + " " +
                                      QByteArray::number(size.height()) + "\r\n";
            QVERIFY(text.startsWith(header));
            QCOMPARE(text.size(), header.size() + size.height() * (size.width() + 2));
            QVERIFY(text.endsWith("\r\n"));
            // The cell of the last row's last column, as the level file stores it.
            QCOMPARE(uchar(text[text.size() - 3]),
                     uchar(FileCodeOffset + block.at(size.width() - 1, size.height() - 1)));

            const BlockReading read = readBlockText(text);
            QCOMPARE(read.outcome, BlockReading::Outcome::Block);
            QCOMPARE(read.block, block);
            QVERIFY(read.message().isEmpty());
            QCOMPARE(readBlockText(QByteArray(text).replace("\r\n", "\n")).block, block);
            QCOMPARE(readBlockText(QString::fromLatin1(text).toUtf8()).block, block);
        }
    }

    void malformedBlocksRefused_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("reason");
        const QByteArray head = "VARNOK-BLOK 1 3 2\r\n";
        QTest::newRow("row missing") << head + "012\r\n" << BlockTexts::missingRows(2, 1);
        QTest::newRow("no rows") << QByteArray("VARNOK-BLOK 1 3 2")
                                 << BlockTexts::missingRows(2, 0);
        QTest::newRow("row short") << head + "012\r\n01\r\n" << BlockTexts::wrongRowLength(2, 2, 3);
        QTest::newRow("row long") << head + "0123\r\n012\r\n"
                                  << BlockTexts::wrongRowLength(1, 4, 3);
        QTest::newRow("CR alone ends no row")
            << head + "012\r012\r" << BlockTexts::wrongRowLength(1, 7, 3);
        QTest::newRow("code past the sheet") << head + "012\r\n01\xbc\r\n"
                                             << BlockTexts::unknownCode(2, 3, SheetCellCount);
        QTest::newRow("negative code") << head + "/12\r\n012\r\n"
                                       << BlockTexts::unknownCode(1, 1, -1);
        QTest::newRow("rows after the last") << head + "012\r\n012\r\n000\r\n"
                                             << BlockTexts::extraRows(2);
        QTest::newRow("wider than allowed")
            << QByteArray("VARNOK-BLOK 1 1001 1\r\n") + QByteArray(1001, '0')
            << BlockTexts::tooLarge("1001", "1", MaxLevelSide);
        QTest::newRow("taller than allowed")
            << QByteArray("VARNOK-BLOK 1 1 99999999999999999999999\r\n0\r\n")
            << BlockTexts::tooLarge("1", "99999999999999999999999", MaxLevelSide);
        QTest::newRow("zero width")
            << QByteArray("VARNOK-BLOK 1 0 2\r\n\r\n\r\n") << BlockTexts::badSize("0", "2");
        QTest::newRow("negative height")
            << QByteArray("VARNOK-BLOK 1 2 -2\r\n") << BlockTexts::badSize("2", "-2");
        QTest::newRow("size not a number")
            << QByteArray("VARNOK-BLOK 1 2x 2\r\n00\r\n00\r\n") << BlockTexts::badSize("2x", "2");
        QTest::newRow("size missing")
            << QByteArray("VARNOK-BLOK 1 2\r\n00\r\n") << BlockTexts::badHeader();
        QTest::newRow("later version")
            << QByteArray("VARNOK-BLOK 2 1 1\r\n0\r\n") << BlockTexts::unknownVersion("2");
    }

    // A malformed block is refused whole, with the reason that names what is wrong.
    void malformedBlocksRefused() {
        QFETCH(QByteArray, text);
        QFETCH(QString, reason);
        const BlockReading read = readBlockText(text);
        QCOMPARE(read.outcome, BlockReading::Outcome::Refused);
        QCOMPARE(read.reason, reason);
        QVERIFY(read.block.codes.empty());
        QCOMPARE(read.message(), BlockTexts::refused(reason));
    }

    // Texts that are no block of ours at all, a level file among them.
    void foreignTextsAreNotBlocks() {
        const QList<QByteArray> texts = {
            "",
            "Ahoj",
            "VARNOK-BLOKY 1 1 1\r\n0\r\n",
            "varnok-blok 1 1 1\r\n0\r\n",
            "1\r\n 15 \r\n 15 \r\n000000000000000\r\n",
            "\x89PNG\r\n\x1a\n",
            "x\r\nVARNOK-BLOK 1 1 1\r\n0\r\n",
        };
        for (const QByteArray& text : texts) {
            const BlockReading read = readBlockText(text);
            QCOMPARE(read.outcome, BlockReading::Outcome::NotOurs);
            QCOMPARE(read.message(), BlockTexts::notOurs());
        }
        // Blanks around the first line, as a chat may add, still mark a block.
        QCOMPARE(readBlockText("  VARNOK-BLOK 1 1 1 \r\n5\r\n").block, (LevelBlock{1, 1, {5}}));
    }
};

QTEST_GUILESS_MAIN(BlockTextTest)
#include "test_block_text.moc"
