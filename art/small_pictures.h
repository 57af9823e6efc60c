#pragma once

#include <QImage>

namespace Art {

// The palette picture of an entry, 48 x 48 (64 x 64 for the two bins and the puddle).
QImage palettePicture(const QImage& sheet, int code);
// The stored 16 x 16 pictures of the New, Open and Save buttons.
QImage buttonPicture(const char* name);
// The window icon in 16 colours.
QImage windowIcon(int side);

}  // namespace Art
