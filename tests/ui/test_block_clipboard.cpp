#include "block_clipboard.h"
#include "block_texts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

class BlockClipboardTest : public QObject {
    Q_OBJECT

  private slots:
    // A block put by one editor is taken by another in either form, its picture along; anything
    // else is not ours, and the private form wins over the plain text.
    void blocksTravelAndOtherContentIsNotTaken() {
        const LevelBlock block{4, 2, {0, 1, 135, 139, 114, 23, 124, 80}};
        QImage picture(256, 128, QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) picture.setPixel(x, y, qRgb(x, y, x ^ y));
        BlockClipboard().put(block, picture);
        QClipboard& clipboard = *QGuiApplication::clipboard();
        const QMimeData* data = clipboard.mimeData();
        QVERIFY(data);
        QCOMPARE(data->data(BlockClipboard::MimeType), encodeBlockText(block));
        QCOMPARE(data->data("text/plain"), encodeBlockText(block));
        QCOMPARE(QImage::fromData(data->data("image/png"), "PNG"), picture);
        QCOMPARE(BlockClipboard().take().block, block);
        // Plain text alone, as a chat gives it back: its characters, one per cell byte.
        clipboard.setText(QString::fromLatin1(encodeBlockText(block)));
        QCOMPARE(BlockClipboard().take().block, block);

        clipboard.clear();
        QCOMPARE(BlockClipboard().take().outcome, BlockReading::Outcome::NotOurs);
        clipboard.setImage(picture);
        QCOMPARE(BlockClipboard().take().outcome, BlockReading::Outcome::NotOurs);
        auto* both = new QMimeData;
        both->setData(BlockClipboard::MimeType, "VARNOK-BLOK 1 1 1\r\n\xff\r\n");
        both->setText(QStringLiteral("VARNOK-BLOK 1 1 1\r\n0\r\n"));
        clipboard.setMimeData(both);
        QCOMPARE(BlockClipboard().take().reason, BlockTexts::unknownCode(1, 1, 255 - 48));
    }
};

QTEST_MAIN(BlockClipboardTest)
#include "test_block_clipboard.moc"
