// Draws the editor's artwork into the folder given: EditPic.jpg and its pixels decoded
// (EditPic.rgb32), palette/<code>.bmp, buttons/<name>.bmp and icon/icon<side>.png; with
// --sample-level, also a sample level laid from the sheet as the editor lays it. The same
// pictures come out on every run.
#include "built_in_sheet_pixels.h"
#include "button_pictures.h"
#include "palette_pictures.h"
#include "sample_level.h"
#include "sheet.h"
#include "tools.h"
#include "window_icon.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>

#include <cstdio>
#include <cstring>

namespace {
// The JPEG as written, decoded by the same reader the editor uses, kept as raw pixels.
bool writeDecodedSheet(const QDir& out) {
    const QImage decoded =
        QImage(out.filePath("EditPic.jpg")).convertToFormat(QImage::Format_RGB32);
    if (decoded.size() != QSize(BuiltInSheetWidth, BuiltInSheetHeight) ||
        decoded.bytesPerLine() != BuiltInSheetWidth * 4)
        return false;
    QFile file(out.filePath("EditPic.rgb32"));
    const auto size = static_cast<qint64>(decoded.sizeInBytes());
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char*>(decoded.constBits()), size) == size;
}
}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);  // image plugins; no fonts or windows are needed
    const bool sample = argc == 4 && std::strcmp(argv[2], "--sample-level") == 0;
    if (argc != 2 && !sample) {
        std::fprintf(stderr, "usage: varnok-art OUTPUT-FOLDER [--sample-level FILE.png]\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    for (const char* folder : {"palette", "buttons", "icon"}) out.mkpath(folder);

    const QImage sheet = Art::drawSheet();
    bool written = sheet.save(out.filePath("EditPic.jpg"), "JPG", 92) && writeDecodedSheet(out);
    for (const Tool& tool : paletteTools())
        written &= Art::palettePicture(sheet, tool.code)
                       .save(out.filePath(QStringLiteral("palette/%1.bmp").arg(tool.code)), "BMP");
    for (const char* name : {"new", "open", "save"})
        written &= Art::buttonPicture(name).save(
            out.filePath(QStringLiteral("buttons/%1.bmp").arg(name)), "BMP");
    for (int side : {16, 32, 48, 64, 128, 256})
        written &= Art::windowIcon(side).save(
            out.filePath(QStringLiteral("icon/icon%1.png").arg(side)), "PNG");
    if (sample) written &= Art::drawSampleLevel(sheet).save(QString::fromLocal8Bit(argv[3]), "PNG");
    if (!written) std::fprintf(stderr, "varnok-art: could not write into %s\n", argv[1]);
    return written ? 0 : 1;
}
