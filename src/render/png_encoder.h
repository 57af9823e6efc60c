#pragma once

#include <QByteArray>

class QImage;

// A PNG of an opaque picture, 8-bit RGB, made for speed: each row filtered by its difference
// from the row above, and the rows compressed at zlib's fastest level in bands, one band a
// processor, joined into the one stream a PNG holds (as pigz joins its blocks). Large
// level pictures encode several times faster than through Qt's writer. Empty when there is
// no memory for it.
QByteArray encodePng(const QImage& picture);
