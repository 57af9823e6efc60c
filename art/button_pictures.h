#pragma once

#include <QImage>

namespace Art {

// The 16 x 16 pictures stored for the New, Open and Save buttons: "new", "open" or "save".
QImage buttonPicture(const char* name);

}  // namespace Art
