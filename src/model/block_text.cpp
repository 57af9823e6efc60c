#include "block_text.h"

#include "block_texts.h"
#include "tile_codes.h"

#include <QList>
#include <QUtf8StringView>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

// The next line of `text` from `at` on, without its CR LF or LF; `at` moves past it.
QByteArrayView nextLine(QByteArrayView text, qsizetype& at) {
    const qsizetype end = text.indexOf('\n', at);
    QByteArrayView line = text.sliced(at, (end < 0 ? text.size() : end) - at);
    at = end < 0 ? text.size() : end + 1;
    if (line.endsWith('\r')) line.chop(1);
    return line;
}

// A side given in the header: positive whole numbers only; a number too long to hold counts as
// larger than any side.
std::optional<qint64> sideOf(const QByteArray& text) {
    if (text.isEmpty() ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    bool fits = false;
    const qint64 value = text.toLongLong(&fits);
    if (!fits) return std::numeric_limits<qint64>::max();
    return value > 0 ? std::optional(value) : std::nullopt;
}

// Cell bytes of a block never begin a UTF-8 sequence (they lie below 0xC0): a text that holds
// such a sequence and decodes to characters of one byte each was re-encoded on its way.
QByteArray undoneUtf8(QByteArrayView text) {
    const bool leadByte =
        std::any_of(text.begin(), text.end(), [](char c) { return uchar(c) >= 0xC0; });
    if (!leadByte || !QUtf8StringView(text).isValidUtf8()) return {};
    const QString decoded = QString::fromUtf8(text);
    if (std::any_of(decoded.begin(), decoded.end(), [](QChar c) { return c.unicode() > 0xFF; }))
        return {};
    return decoded.toLatin1();
}

BlockReading refusal(const QString& reason) {
    return {BlockReading::Outcome::Refused, {}, reason};
}

BlockReading readCells(QByteArrayView text) {
    qsizetype at = 0;
    const QList<QByteArray> header = nextLine(text, at).toByteArray().simplified().split(' ');
    if (header.size() != 4) return refusal(BlockTexts::badHeader());
    if (header[1] != QByteArray::number(BlockTextVersion))
        return refusal(BlockTexts::unknownVersion(header[1]));
    const std::optional<qint64> width = sideOf(header[2]);
    const std::optional<qint64> height = sideOf(header[3]);
    if (!width || !height) return refusal(BlockTexts::badSize(header[2], header[3]));
    if (*width > MaxLevelSide || *height > MaxLevelSide)
        return refusal(BlockTexts::tooLarge(header[2], header[3], MaxLevelSide));

    BlockReading reading{BlockReading::Outcome::Block, {int(*width), int(*height), {}}, {}};
    LevelBlock& block = reading.block;
    block.codes.resize(std::size_t(block.width) * std::size_t(block.height));
    auto code = block.codes.begin();
    for (int y = 0; y < block.height; ++y) {
        if (at >= text.size()) return refusal(BlockTexts::missingRows(block.height, y));
        const QByteArrayView line = nextLine(text, at);
        if (line.size() != block.width)
            return refusal(BlockTexts::wrongRowLength(y + 1, line.size(), block.width));
        for (int x = 0; x < block.width; ++x, ++code) {
            *code = static_cast<qint16>(uchar(line[x]) - FileCodeOffset);
            if (!hasPicture(*code)) return refusal(BlockTexts::unknownCode(y + 1, x + 1, *code));
        }
    }
    const QByteArrayView rest = text.sliced(at);
    if (!std::all_of(rest.begin(), rest.end(), [](char c) { return c == '\r' || c == '\n'; }))
        return refusal(BlockTexts::extraRows(block.height));
    return reading;
}

}  // namespace

QByteArray encodeBlockText(const LevelBlock& block) {
    const QByteArray header = BlockTextMark + (" " + QByteArray::number(BlockTextVersion)) + " " +
                              QByteArray::number(block.width) + " " +
                              QByteArray::number(block.height) + "\r\n";
    const qsizetype lineLength = block.width + 2;
    QByteArray text(header.size() + block.height * lineLength, Qt::Uninitialized);
    char* out = std::copy(header.begin(), header.end(), text.data());
    auto code = block.codes.begin();
    for (int y = 0; y < block.height; ++y) {
        for (int x = 0; x < block.width; ++x) *out++ = static_cast<char>(FileCodeOffset + *code++);
        *out++ = '\r';
        *out++ = '\n';
    }
    return text;
}

QString BlockReading::message() const {
    switch (outcome) {
        case Outcome::NotOurs:
            return BlockTexts::notOurs();
        case Outcome::Refused:
            return BlockTexts::refused(reason);
        case Outcome::Block:
            break;
    }
    return {};
}

BlockReading readBlockText(QByteArrayView text) {
    qsizetype at = 0;
    const QByteArrayView first = nextLine(text, at).trimmed();
    if (!first.startsWith(BlockTextMark) ||
        (first.size() > qsizetype(sizeof BlockTextMark) - 1 &&
         !QChar::isSpace(uchar(first[sizeof BlockTextMark - 1]))))
        return {};
    const QByteArray original = undoneUtf8(text);
    return readCells(original.isNull() ? text : QByteArrayView(original));
}
