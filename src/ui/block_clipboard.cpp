#include "block_clipboard.h"

#include "png_encoder.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

const QString PlainText = QStringLiteral("text/plain");
const QString Png = QStringLiteral("image/png");

// The block's forms on the clipboard. Its PNG is made only when a program asks for it, and by
// the renderers' own encoder: Qt's writer takes about half a second over a 2000-pixel picture,
// and a clipboard manager asks right after every copy.
class BlockMimeData : public QMimeData {
  public:
    explicit BlockMimeData(const QImage& picture) : picture(picture) { setImageData(picture); }

    QStringList formats() const override {
        QStringList all = QMimeData::formats();
        if (!all.contains(Png)) all.append(Png);
        return all;
    }

  protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override {
        if (mimeType != Png) return QMimeData::retrieveData(mimeType, type);
        if (png.isNull()) png = encodePng(picture.convertToFormat(QImage::Format_RGB32));
        return png;
    }

  private:
    QImage picture;
    mutable QByteArray png;
};

}  // namespace

void BlockClipboard::put(const LevelBlock& block, const QImage& picture) const {
    const QByteArray text = encodeBlockText(block);
    auto* data = new BlockMimeData(picture);
    data->setData(QString::fromLatin1(MimeType), text);
    data->setData(PlainText, text);
    QGuiApplication::clipboard()->setMimeData(data);
}

BlockFromClipboard BlockClipboard::take() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data) return {};
    if (data->hasFormat(QString::fromLatin1(MimeType)))
        return readBlockText(data->data(QString::fromLatin1(MimeType)));
    // Text from another program: its bytes as they came, else its characters in UTF-8, which
    // the reader turns back into the cells' bytes.
    QByteArray text = data->data(PlainText);
    if (text.isEmpty() && data->hasText()) text = data->text().toUtf8();
    return readBlockText(text);
}
