#include "png_encoder.h"

#include <QImage>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace {
constexpr int Window = 32768;  // deflate looks back this far

// A buffer that is not cleared first: every byte of it is written before it is read.
struct Bytes {
    std::unique_ptr<Bytef[]> data;
    std::size_t size = 0;
    explicit Bytes(std::size_t n = 0) : data(new Bytef[n]), size(n) {}
};

void putBigEndian(char* at, quint32 value) {
    qToBigEndian(value, at);
}

// Rows as a PNG holds them before compression: a filter byte, then red, green and blue of
// each pixel less those of the pixel above (filter "Up").
Bytes filteredRows(const QImage& picture) {
    const auto width = static_cast<std::size_t>(picture.width());
    const std::size_t stride = 1 + 3 * width;
    Bytes rows(stride * static_cast<std::size_t>(picture.height()));
    for (int y = 0; y < picture.height(); ++y) {
        Bytef* out = rows.data.get() + stride * static_cast<std::size_t>(y);
        *out++ = 2;
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const auto* above =
            y ? reinterpret_cast<const QRgb*>(picture.constScanLine(y - 1)) : nullptr;
        for (std::size_t x = 0; x < width; ++x) {
            const QRgb pixel = line[x];
            const QRgb up = above ? above[x] : 0;
            *out++ = static_cast<Bytef>(qRed(pixel) - qRed(up));
            *out++ = static_cast<Bytef>(qGreen(pixel) - qGreen(up));
            *out++ = static_cast<Bytef>(qBlue(pixel) - qBlue(up));
        }
    }
    return rows;
}

// One band of the stream: raw deflate primed with the 32 kB before it, ended on a byte
// boundary so that the next band's blocks follow it directly, or finished when it is last.
bool deflateBand(const Bytef* data, std::size_t begin, std::size_t end, bool last, Bytes& out) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return false;
    if (begin > 0) {
        const std::size_t from = begin > Window ? begin - Window : 0;
        deflateSetDictionary(&stream, data + from, static_cast<uInt>(begin - from));
    }
    out = Bytes(deflateBound(&stream, static_cast<uLong>(end - begin)) + 16);
    stream.next_in = const_cast<Bytef*>(data + begin);
    stream.avail_in = static_cast<uInt>(end - begin);
    stream.next_out = out.data.get();
    stream.avail_out = static_cast<uInt>(out.size);
    const int result = deflate(&stream, last ? Z_FINISH : Z_SYNC_FLUSH);
    out.size -= stream.avail_out;
    deflateEnd(&stream);
    return result == (last ? Z_STREAM_END : Z_OK) && stream.avail_in == 0;
}
}  // namespace

QByteArray encodePng(const QImage& picture) {
    const Bytes rows = filteredRows(picture);
    const unsigned processors = std::max(1u, std::thread::hardware_concurrency());
    const std::size_t bands = std::min<std::size_t>(processors, rows.size / (4 * Window) + 1);
    std::vector<Bytes> compressed(bands);
    std::vector<std::future<bool>> done;
    for (std::size_t band = 0; band < bands; ++band) {
        const std::size_t begin = rows.size * band / bands;
        const std::size_t end = rows.size * (band + 1) / bands;
        done.push_back(std::async(std::launch::async, deflateBand, rows.data.get(), begin, end,
                                  band + 1 == bands, std::ref(compressed[band])));
    }
    bool ok = true;
    for (auto& band : done) ok = band.get() && ok;
    if (!ok) return {};

    // Signature, IHDR, IDAT (zlib's header, the bands, the checksum), IEND: laid out in place.
    std::size_t streamSize = 2 + 4;
    for (const Bytes& band : compressed) streamSize += band.size;
    QByteArray png(static_cast<qsizetype>(8 + 25 + 12 + streamSize + 12), Qt::Uninitialized);
    char* at = png.data();
    const auto chunk = [&](const char* type, std::size_t length, const auto& fill) {
        putBigEndian(at, static_cast<quint32>(length));
        std::memcpy(at + 4, type, 4);
        fill(at + 8);
        const auto crc =
            crc32(0, reinterpret_cast<const Bytef*>(at + 4), static_cast<uInt>(length + 4));
        putBigEndian(at + 8 + length, static_cast<quint32>(crc));
        at += 12 + length;
    };
    std::memcpy(at, "\x89PNG\r\n\x1a\n", 8);
    at += 8;
    chunk("IHDR", 13, [&](char* data) {
        putBigEndian(data, static_cast<quint32>(picture.width()));
        putBigEndian(data + 4, static_cast<quint32>(picture.height()));
        const char rest[5] = {8, 2, 0, 0, 0};  // 8 bits a channel, RGB, deflate, no interlace
        std::memcpy(data + 8, rest, 5);
    });
    chunk("IDAT", streamSize, [&](char* data) {
        data[0] = 0x78;  // zlib's header for the fastest level
        data[1] = 0x01;
        data += 2;
        for (const Bytes& band : compressed) {
            std::memcpy(data, band.data.get(), band.size);
            data += band.size;
        }
        const auto sum =
            adler32(adler32(0, nullptr, 0), rows.data.get(), static_cast<uInt>(rows.size));
        putBigEndian(data, static_cast<quint32>(sum));
    });
    chunk("IEND", 0, [](char*) {});
    return png;
}
