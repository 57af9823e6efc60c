#pragma once

#include <QImage>

// An uninitialised RGB32 picture in memory the kernel may map in 2 MiB pages, for large
// pictures written once: in a virtual machine a fault per 4 KiB page costs more than drawing
// and copying the page (for 64 MB, about 250 ms of faults against about 15). A picture under
// 2 MiB is an ordinary one. Null when there is no memory.
QImage blankPicture(int width, int height);
