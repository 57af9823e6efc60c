// Draws the editor's artwork into the folder given: EditPic.jpg, palette/<code>.bmp,
// buttons/<name>.bmp and icon/icon<side>.png. The same pictures come out on every run.
#include "button_pictures.h"
#include "palette_pictures.h"
#include "sheet.h"
#include "window_icon.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);  // image plugins; no fonts or windows are needed
    if (argc != 2) {
        std::fprintf(stderr, "usage: varnok-art OUTPUT-FOLDER\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    for (const char* folder : {"palette", "buttons", "icon"}) out.mkpath(folder);

    const QImage sheet = Art::drawSheet();
    bool written = sheet.save(out.filePath("EditPic.jpg"), "JPG", 92);
    const int paletteCodes[] = {0,   1, 23, 24, 25, 26, 134, 27, 28, 29,  124, 125, 126,
                                127, 2, 3,  4,  5,  6,  7,   8,  9,  135, 136, 137, 138};
    for (int code : paletteCodes)
        written &= Art::palettePicture(sheet, code)
                       .save(out.filePath(QStringLiteral("palette/%1.bmp").arg(code)), "BMP");
    for (const char* name : {"new", "open", "save"})
        written &= Art::buttonPicture(name).save(
            out.filePath(QStringLiteral("buttons/%1.bmp").arg(name)), "BMP");
    for (int side : {16, 32, 48, 64, 128, 256})
        written &= Art::windowIcon(side).save(
            out.filePath(QStringLiteral("icon/icon%1.png").arg(side)), "PNG");
    if (!written) std::fprintf(stderr, "varnok-art: could not write into %s\n", argv[1]);
    return written ? 0 : 1;
}
