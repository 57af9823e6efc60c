#include "blank_picture.h"

#include <cstdlib>

#include <sys/mman.h>

QImage blankPicture(int width, int height) {
    constexpr std::size_t HugePage = std::size_t(2) << 20;
    const std::size_t bytes = std::size_t(width) * std::size_t(height) * sizeof(QRgb);
    // A small picture would waste most of a 2 MiB page.
    if (bytes < HugePage) return QImage(width, height, QImage::Format_RGB32);
    const std::size_t rounded = (bytes + HugePage - 1) / HugePage * HugePage;
    void* memory = rounded > 0 ? std::aligned_alloc(HugePage, rounded) : nullptr;
    if (!memory) return {};
    madvise(memory, rounded, MADV_HUGEPAGE);  // a hint: without it, ordinary pages
    return QImage(static_cast<uchar*>(memory), width, height,
                  static_cast<qsizetype>(width) * qsizetype(sizeof(QRgb)), QImage::Format_RGB32,
                  std::free, memory);
}
