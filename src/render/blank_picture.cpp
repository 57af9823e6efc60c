#include "blank_picture.h"

#include "large_buffer.h"

#include <cstddef>

QImage blankPicture(int width, int height) {
    const std::size_t bytes = std::size_t(width) * std::size_t(height) * sizeof(QRgb);
    void* memory = bytes > 0 ? allocateLargeBuffer(bytes) : nullptr;
    if (!memory) return {};
    struct Held {
        void* memory;
        std::size_t bytes;
    };
    const auto release = [](void* held) {
        const auto* buffer = static_cast<Held*>(held);
        freeLargeBuffer(buffer->memory, buffer->bytes);
        delete buffer;
    };
    return QImage(static_cast<uchar*>(memory), width, height,
                  static_cast<qsizetype>(width) * qsizetype(sizeof(QRgb)), QImage::Format_RGB32,
                  release, new Held{memory, bytes});
}
