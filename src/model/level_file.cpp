#include "level_file.h"

#include "dialogs.h"
#include "level.h"
#include "line_reader.h"
#include "tile_codes.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QSaveFile>

#include <algorithm>
#include <cstring>

namespace {

constexpr int SizeLineAllowance = 2 * FileBorder;
constexpr qint64 LongestSizeLine = 64;  // longer is no number the size line can hold

QString shownName(const QString& path) {
    return QFileInfo(path).fileName();
}

// A whole number with optional blanks around it and an optional sign, fitting 16 bits.
std::optional<qint16> parseSizeLine(const QByteArray& line) {
    bool ok = false;
    const int value = line.trimmed().toInt(&ok, 10);
    if (!ok || value < -32768 || value > 32767) return std::nullopt;
    return static_cast<qint16>(value);
}

struct Header {
    int width = 0;
    int height = 0;
};

std::optional<LevelFileRefusal> readHeader(LineReader& reader, const QString& name,
                                           Header& header) {
    int sides[2] = {0, 0};
    if (reader.atEnd()) return LevelFileRefusal{QStringLiteral("Soubor %1 je prázdný.").arg(name)};
    reader.readLine(0);
    for (int i = 0; i < 2; ++i) {
        if (reader.atEnd())
            return LevelFileRefusal{
                QStringLiteral("Soubor %1 nemá ani tři řádky, level v něm není.").arg(name)};
        const LineReader::Line line = reader.readLine(LongestSizeLine + 1);
        const std::optional<qint16> value =
            line.length > LongestSizeLine ? std::nullopt : parseSizeLine(line.text.toByteArray());
        if (!value)
            return LevelFileRefusal{
                QStringLiteral("Soubor %1: na řádku %2 není celé číslo (rozměr levelu).")
                    .arg(name)
                    .arg(i + 2)};
        sides[i] = *value - SizeLineAllowance;
        if (sides[i] < 0 || sides[i] > MaxLevelSide)
            return LevelFileRefusal{
                QStringLiteral("Soubor %1: rozměr levelu %2 je mimo povolený rozsah 0 až %3.")
                    .arg(name)
                    .arg(sides[i])
                    .arg(MaxLevelSide)};
    }
    header = {sides[0], sides[1]};
    return std::nullopt;
}

}  // namespace

std::optional<LevelFileRefusal> ReadLevelFile(Level& level, Dialogs& dialogs, const QString& path) {
    const QString name = shownName(path);
    QFile file(path);
    if (!file.exists())
        return LevelFileRefusal{QStringLiteral("Soubor %1 nebyl nalezen.").arg(name), true};
    if (!file.open(QIODevice::ReadOnly))
        return LevelFileRefusal{
            QStringLiteral("Soubor %1 nelze otevřít: %2").arg(name, file.errorString())};
    return ReadLevelFrom(level, dialogs, file, name);
}

std::optional<LevelFileRefusal> ReadLevelFrom(Level& level, Dialogs& dialogs, QIODevice& device,
                                              const QString& name) {
    LineReader reader(device);
    Header header;
    if (auto refusal = readHeader(reader, name, header)) return refusal;

    level.Allocate(header.width, header.height);
    const qint64 lineLength = header.width + SizeLineAllowance;
    for (int i = 0; i < FileBorder && !reader.atEnd(); ++i) reader.readLine(0);
    for (int y = 0; y < header.height; ++y) {
        if (reader.atEnd()) break;
        const LineReader::Line line = reader.readLine(lineLength + 1);
        if (line.length != lineLength) {
            dialogs.error(QStringLiteral("NEODPOVIDA DELKA RADKU %1 V %2!").arg(y).arg(name));
            break;
        }
        const auto* bytes = reinterpret_cast<const unsigned char*>(line.text.data()) + FileBorder;
        qint16* cells = level.row(y);
        for (int x = 0; x < header.width; ++x)
            cells[x] = static_cast<qint16>(bytes[x] - FileCodeOffset);
        // The last hero in reading order wins.
        if (const void* hero = memrchr(bytes, FileCodeOffset + HeroCode, header.width)) {
            level.HeroX = static_cast<int>(static_cast<const unsigned char*>(hero) - bytes);
            level.HeroY = y;
        }
    }
    return std::nullopt;
}

QByteArray EncodeLevelFile(const Level& level) {
    const int width = level.GridWidth;
    const int height = level.GridHeight;
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

std::optional<QString> WriteLevelFile(const Level& level, const QString& path) {
    QSaveFile file(path);
    const QByteArray bytes = EncodeLevelFile(level);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return std::nullopt;
    return QStringLiteral("Level se nepodařilo uložit do souboru %1: %2")
        .arg(shownName(path), file.errorString());
}
