#pragma once

#include <QImage>

namespace Art {

// A walled level with corridors, all eight rooms, furniture, items and figures, laid as the
// editor lays them and cut from `sheet`: the artwork seen the way a level designer sees it.
QImage drawSampleLevel(const QImage& sheet);

}  // namespace Art
