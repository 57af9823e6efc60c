#pragma once

#include <QImage>

// An uninitialised RGB32 picture, for large pictures written once, in memory the kernel may map
// in 2 MiB pages (allocateLargeBuffer): for 64 MB, 4 KiB pages took about 250 ms of faults
// against about 15 of drawing and copying. Null when there is no memory.
QImage blankPicture(int width, int height);
