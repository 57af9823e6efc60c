#pragma once

#include <QImage>

namespace Art {

// The window icon, the green Varnok's face: 32 x 32 or 16 x 16 in the sixteen classic colours,
// larger sides smoothed on a rounded tile with a transparent corner.
QImage windowIcon(int side);

}  // namespace Art
