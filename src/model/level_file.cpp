#include "level_file.h"

#include "atomic_file.h"
#include "file_names.h"
#include "file_reasons.h"
#include "level.h"
#include "line_reader.h"
#include "tile_codes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

namespace {

constexpr int SizeLineAllowance = 2 * FileBorder;
constexpr qint64 LongestSizeLine = 64;     // a longer size line is refused unread
constexpr qint64 LongestFirstLine = 4096;  // kept only to tell LF line ends apart
// The largest level file there can be: three header lines, then the grid with its border.
// Nothing past it is read, so an endless file cannot hold the editor up.
constexpr qint64 LargestLevelFile =
    3 * (LongestSizeLine + 2) +
    qint64(MaxLevelSide + 2 * FileBorder) * (MaxLevelSide + 2 * FileBorder + 2);

QString shownName(const QString& path) {
    return shownFileName(QFileInfo(path).fileName());
}

// A size line holds a whole number with optional blanks around it and an optional sign.
bool isWholeNumber(const QByteArray& text) {
    const qsizetype start = text.startsWith('+') || text.startsWith('-') ? 1 : 0;
    return text.size() > start && std::all_of(text.begin() + start, text.end(),
                                              [](char c) { return c >= '0' && c <= '9'; });
}

// The side a size line gives (negative when below the border), or nothing when it is no whole
// number; a number too long for 64 bits counts as out of any range.
std::optional<qint64> sideFromSizeLine(const QByteArray& line) {
    const QByteArray text = line.trimmed();
    if (!isWholeNumber(text)) return std::nullopt;
    bool fits = false;
    const qint64 value = text.toLongLong(&fits, 10);
    if (!fits) return text.startsWith('-') ? -1 : std::numeric_limits<qint64>::max();
    return value < SizeLineAllowance ? -1 : value - SizeLineAllowance;
}

struct Header {
    int width = 0;
    int height = 0;
};

// Checks the header; the refusal, or empty when the header is good.
QString readHeader(LineReader& reader, const QString& name, Header& header) {
    int sides[2] = {0, 0};
    if (reader.atEnd()) return QStringLiteral("Soubor %1 je prázdný.").arg(name);
    const bool lineFeedsOnly = reader.readLine(LongestFirstLine).text.contains('\n');
    for (int i = 0; i < 2; ++i) {
        if (reader.atEnd() && lineFeedsOnly)
            return QStringLiteral(
                       "Soubor %1 má konce řádků LF, editor čte jen řádky zakončené "
                       "CR LF (jak je zapisuje sám).")
                .arg(name);
        if (reader.atEnd())
            return QStringLiteral("Soubor %1 nemá ani tři řádky, level v něm není.").arg(name);
        const LineReader::Line line = reader.readLine(LongestSizeLine + 1);
        const std::optional<qint64> side = line.length > LongestSizeLine
                                               ? std::nullopt
                                               : sideFromSizeLine(line.text.toByteArray());
        if (!side)
            return QStringLiteral("Soubor %1: na řádku %2 není celé číslo (rozměr levelu).")
                .arg(name)
                .arg(i + 2);
        if (*side < 0 || *side > MaxLevelSide)
            return QStringLiteral(
                       "Soubor %1: rozměr levelu na řádku %2 je mimo povolený rozsah 0 až %3.")
                .arg(name)
                .arg(i + 2)
                .arg(MaxLevelSide);
        sides[i] = static_cast<int>(*side);
    }
    header = {sides[0], sides[1]};
    return {};
}

}  // namespace

QString spriteSheetBeside(const QString& levelFile) {
    return QFileInfo(levelFile).dir().filePath(SpriteSheetFileName);
}

LevelReadResult readLevelFile(Level& level, const QString& path) {
    const QString name = shownName(path);
    struct stat info {};
    if (!statusOf(path, info) && (errno == ENOENT || errno == ENOTDIR))
        return {QStringLiteral("Soubor %1 nebyl nalezen.").arg(name), true, {}};
    // A FIFO would block the open and a device would never end: only files are read.
    const QString cannotOpen = QStringLiteral("Soubor %1 nelze otevřít: %2");
    if (S_ISDIR(info.st_mode))
        return {cannotOpen.arg(name, czechFileReason(EISDIR, {})), false, {}};
    if (info.st_mode != 0 && !S_ISREG(info.st_mode))
        return {cannotOpen.arg(name, QStringLiteral("není to obyčejný soubor (je to zařízení, "
                                                    "roura nebo socket).")),
                false,
                {}};
    QFile file;
    errno = 0;
    if (!openForReading(file, path)) {
        const int error = errno;
        return {cannotOpen.arg(name, czechFileReason(error)), false, {}};
    }
    return readLevelFrom(level, file, name);
}

LevelReadResult readLevelFrom(Level& level, QIODevice& device, const QString& name) {
    LineReader reader(device, LargestLevelFile);
    Header header;
    LevelReadResult result;
    result.refusal = readHeader(reader, name, header);
    if (!result.ok()) return result;

    // Every cell is written below: the rows read, then floor from the first row not read on,
    // the margin included.
    level.resetUnwritten(header.width, header.height);
    const qint64 lineLength = header.width + SizeLineAllowance;
    for (int i = 0; i < FileBorder && !reader.atEnd(); ++i) reader.readLine(0);
    int y = 0;
    for (; y < header.height; ++y) {
        if (reader.atEnd()) break;
        const LineReader::Line line = reader.readLine(lineLength + 1);
        if (line.length != lineLength) {
            result.warning = QStringLiteral("NEODPOVIDA DELKA RADKU %1 V %2!").arg(y).arg(name);
            break;
        }
        const auto* bytes = reinterpret_cast<const unsigned char*>(line.text.data()) + FileBorder;
        qint16* cells = level.row(y);
        for (int x = 0; x < header.width; ++x)
            cells[x] = static_cast<qint16>(bytes[x] - FileCodeOffset);
        cells[header.width] = FloorCode;
        // The last hero in reading order wins.
        if (const void* hero = memrchr(bytes, FileCodeOffset + HeroCode, header.width)) {
            level.setHero(
                QPoint(static_cast<int>(static_cast<const unsigned char*>(hero) - bytes), y));
        }
    }
    std::fill(level.row(y), level.row(header.height) + header.width + 1, FloorCode);
    return result;
}

QByteArray encodeLevelFile(const Level& level) {
    const int width = level.width();
    const int height = level.height();
    const qsizetype lineLength = width + SizeLineAllowance;
    const QByteArray sizeLines = "1\r\n " + QByteArray::number(width + SizeLineAllowance) +
                                 " \r\n " + QByteArray::number(height + SizeLineAllowance) +
                                 " \r\n";
    const qsizetype lines = height + 2 * FileBorder;
    QByteArray bytes(sizeLines.size() + lines * (lineLength + 2), '0');
    char* out = std::copy(sizeLines.begin(), sizeLines.end(), bytes.data());
    // Every line is "0" bytes but for its cells and its ending.
    for (qsizetype line = 0; line < lines; ++line, out += lineLength + 2) {
        const qsizetype y = line - FileBorder;
        if (y >= 0 && y < height) {
            const qint16* cells = level.row(static_cast<int>(y));
            for (int x = 0; x < width; ++x)
                out[FileBorder + x] = static_cast<char>(FileCodeOffset + cells[x]);
        }
        out[lineLength] = '\r';
        out[lineLength + 1] = '\n';
    }
    return bytes;
}

LevelWriteResult writeLevelFile(const Level& level, const QString& path) {
    const auto failed = [&](const QString& reason) {
        return LevelWriteResult{QStringLiteral("Level se nepodařilo uložit do souboru %1: %2")
                                    .arg(shownFileName(path), reason)};
    };
    // A save writes beside the target and renames over it: that would replace a pipe or a
    // device with a file.
    if (const QString refusal = notAPlainFile(path); !refusal.isEmpty()) return failed(refusal);
    AtomicFile file(path);
    const QByteArray bytes = encodeLevelFile(level);
    errno = 0;
    if (file.open() && file.write(bytes.constData(), bytes.size()) && file.commit()) return {};
    const int error = errno;
    return {QStringLiteral("Level se nepodařilo uložit do souboru %1: %2")
                .arg(shownName(path), czechFileReason(error))};
}
