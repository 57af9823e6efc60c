#pragma once

#include <QImage>

namespace Art {

// Single-cell objects standing on floor: furniture 23..29, items 124..127, WC 134, the
// figures 135..138, and the neutral picture of cells no tool paints.
QImage drawObject(int code);
bool isObjectCode(int code);

}  // namespace Art
