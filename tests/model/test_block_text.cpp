#include "block_text.h"
#include "block_texts.h"
#include "tile_codes.h"

#include <QRandomGenerator>
#include <QTest>

class BlockTextTest : public QObject {
    Q_OBJECT

  private slots:
    // The text holds the level file's bytes; random blocks come back equal, also after their
    // line ends or their bytes were changed by a program on the way.
    void blocksRoundTripAndMalformedOnesAreRefused() {
        QCOMPARE(encodeBlockText({3, 2, {0, 17, 135, 1, 139, 10}}),
                 QByteArray("VARNOK-BLOK 1 3 2\r\n0A\xb7\r\n1\xbb:\r\n"));
        QRandomGenerator random(24);
        QList<QSize> sizes = {{1, 1}, {1, 1000}, {1000, 3}};
        for (int i = 0; i < 100; ++i)
            sizes.append(QSize(1 + random.bounded(40), 1 + random.bounded(40)));
        for (const QSize size : sizes) {
            LevelBlock block{size.width(), size.height(), {}};
            for (int i = 0; i < size.width() * size.height(); ++i)
                block.codes.push_back(qint16(random.bounded(SheetCellCount)));
            const QByteArray text = encodeBlockText(block);
            QCOMPARE(readBlockText(text).block, block);
            QCOMPARE(readBlockText(QByteArray(text).replace("\r\n", "\n")).block, block);
            QCOMPARE(readBlockText(QString::fromLatin1(text).toUtf8()).block, block);
        }

        // A malformed block is refused whole, with the reason that names what is wrong; texts
        // that are no block of ours at all are told so, blanks around the mark make a block.
        const QByteArray head = "VARNOK-BLOK 1 3 2\r\n";
        const QList<std::pair<QByteArray, QString>> malformed = {
            {head + "012\r\n", BlockTexts::missingRows(2, 1)},
            {head + "012\r\n01\r\n", BlockTexts::wrongRowLength(2, 2, 3)},
            {head + "012\r012\r", BlockTexts::wrongRowLength(1, 7, 3)},
            {head + "012\r\n01\xbc\r\n", BlockTexts::unknownCode(2, 3, SheetCellCount)},
            {head + "/12\r\n012\r\n", BlockTexts::unknownCode(1, 1, -1)},
            {head + "012\r\n012\r\n0\r\n", BlockTexts::extraRows(2)},
            {"VARNOK-BLOK 1 1001 1\r\n" + QByteArray(1001, '0'),
             BlockTexts::tooLarge("1001", "1", MaxLevelSide)},
            {"VARNOK-BLOK 1 1 99999999999999999999\r\n0\r\n",
             BlockTexts::tooLarge("1", "99999999999999999999", MaxLevelSide)},
            {"VARNOK-BLOK 1 0 2\r\n", BlockTexts::badSize("0", "2")},
            {"VARNOK-BLOK 1 2 -2\r\n", BlockTexts::badSize("2", "-2")},
            {"VARNOK-BLOK 1 2\r\n00\r\n", BlockTexts::badHeader()},
            {"VARNOK-BLOK 2 1 1\r\n0\r\n", BlockTexts::unknownVersion("2")}};
        for (const auto& [text, reason] : malformed) {
            const BlockReading read = readBlockText(text);
            QVERIFY2(read.outcome == BlockReading::Outcome::Refused && read.block.codes.empty(),
                     text.constData());
            QCOMPARE(read.message(), BlockTexts::refused(reason));
        }
        for (const QByteArray text :
             {"", "Ahoj", "VARNOK-BLOKY 1 1 1\r\n0\r\n", "varnok-blok 1 1 1\r\n0\r\n",
              "1\r\n 15 \r\n 15 \r\n", "x\r\nVARNOK-BLOK 1 1 1\r\n0\r\n"})
            QCOMPARE(readBlockText(text).message(), BlockTexts::notOurs());
        QCOMPARE(readBlockText("  VARNOK-BLOK 1 1 1 \r\n5\r\n").block, (LevelBlock{1, 1, {5}}));
    }
};

QTEST_GUILESS_MAIN(BlockTextTest)
#include "test_block_text.moc"
