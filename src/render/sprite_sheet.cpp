#include "sprite_sheet.h"

#include "file_names.h"
#include "tile_codes.h"

#include <QFile>
#include <QResource>

#ifdef VARNOK_BUILT_IN_SHEET_PIXELS
#include "built_in_sheet_pixels.h"
#endif

#include <sys/stat.h>

#include <cerrno>

// RGB32 is the format the map's blits copy fastest; colours stay as they are.
SpriteSheet::SpriteSheet(QImage image) : sheet(image.convertToFormat(QImage::Format_RGB32)) {}

namespace {
const QString BuiltInJpeg = QStringLiteral(":/sheet/EditPic.jpg");

// The built-in sheet file as it is embedded, to recognise a copy of it.
QByteArray builtInJpegBytes() {
    const QResource resource(BuiltInJpeg);
    if (resource.compressionAlgorithm() != QResource::NoCompression)
        return resource.uncompressedData();
    return QByteArray::fromRawData(reinterpret_cast<const char*>(resource.data()), resource.size());
}
}  // namespace

SpriteSheet SpriteSheet::builtIn() {
#ifdef VARNOK_BUILT_IN_SHEET_PIXELS
    // Decoded when the program was built; the image reads the program's own pages.
    const auto pixels = builtInSheetPixels();
    if (pixels.size() == std::size_t{BuiltInSheetWidth} * BuiltInSheetHeight * 4)
        return SpriteSheet(QImage(pixels.data(), BuiltInSheetWidth, BuiltInSheetHeight,
                                  BuiltInSheetWidth * 4, QImage::Format_RGB32));
#endif
    return SpriteSheet(QImage(BuiltInJpeg));
}

namespace {
// A JPEG ends with its end-of-image marker; one cut off short still decodes, with the rest of
// the picture grey, and the image reader only warns.
bool endsBeforeItsEnd(const QByteArray& bytes) {
    if (!bytes.startsWith("\xFF\xD8")) return false;
    qsizetype end = bytes.size();
    while (end > 0 && (bytes[end - 1] == '\0' || bytes[end - 1] == '\n')) --end;
    return !QByteArrayView(bytes).first(end).endsWith("\xFF\xD9");
}
}  // namespace

SpriteSheet SpriteSheet::fromFileOrBuiltIn(const QString& path, FileState& state) {
    struct stat info {};
    if (!statusOf(path, info) && (errno == ENOENT || errno == ENOTDIR)) {
        state = FileState::Missing;
        return builtIn();
    }
    QImage image;
    QFile file;
    const bool plain = S_ISREG(info.st_mode);  // a pipe or a device would never end
    const QByteArray bytes = plain && openForReading(file, path) ? file.readAll() : QByteArray();
    // A copy of the built-in sheet, the usual case, needs no decoding.
    if (!bytes.isEmpty() && bytes == builtInJpegBytes()) {
        state = FileState::Loaded;
        return builtIn();
    }
    const bool whole = !bytes.isEmpty() && !endsBeforeItsEnd(bytes);
    if (whole && image.loadFromData(bytes) && usable(image)) {
        state = FileState::Loaded;
        return SpriteSheet(image);
    }
    state = FileState::Unusable;
    return builtIn();
}

bool SpriteSheet::usable(const QImage& image) {
    return image.width() >= SheetColumns && image.height() >= SheetRows;
}

QSize SpriteSheet::cellSize() const {
    return {sheet.width() / SheetColumns, sheet.height() / SheetRows};
}

QRect SpriteSheet::cellRect(int n) const {
    Q_ASSERT(hasPicture(n));
    const QSize size = cellSize();
    return {(n % SheetColumns) * size.width(), (n / SheetColumns) * size.height(), size.width(),
            size.height()};
}
