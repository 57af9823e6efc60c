#include "block_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {
const QString PlainText = QStringLiteral("text/plain");
}

void BlockClipboard::put(const LevelBlock& block, const QImage& picture) const {
    const QByteArray text = encodeBlockText(block);
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(MimeType), text);
    data->setData(PlainText, text);
    data->setImageData(picture);
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
