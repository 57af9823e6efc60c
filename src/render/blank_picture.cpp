#include "blank_picture.h"

#include "large_buffer.h"

#include <cstdlib>

QImage blankPicture(int width, int height) {
    const std::size_t bytes = std::size_t(width) * std::size_t(height) * sizeof(QRgb);
    void* memory = bytes > 0 ? allocateLargeBuffer(bytes) : nullptr;
    if (!memory) return {};
    return QImage(static_cast<uchar*>(memory), width, height,
                  static_cast<qsizetype>(width) * qsizetype(sizeof(QRgb)), QImage::Format_RGB32,
                  std::free, memory);
}
