#pragma once

#include <QImage>

namespace Art {

// The palette picture of an entry, 48 x 48 (64 x 64 for the two bins and the puddle), drawn
// from the sheet so that an entry shows just what it paints.
QImage palettePicture(const QImage& sheet, int code);

}  // namespace Art
