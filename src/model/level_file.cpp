#include "level_file.h"

#include "dialogs.h"
#include "level.h"
#include "line_reader.h"
#include "tile_codes.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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
            line.length > LongestSizeLine ? std::nullopt : parseSizeLine(line.text);
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
    LineReader reader(file);

    Header header;
    if (auto refusal = readHeader(reader, name, header)) return refusal;
    if (file.error() != QFileDevice::NoError)
        return LevelFileRefusal{
            QStringLiteral("Soubor %1 nelze přečíst: %2").arg(name, file.errorString())};

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
        for (int x = 0; x < header.width; ++x) {
            const auto byte = static_cast<unsigned char>(line.text[FileBorder + x]);
            const auto code = static_cast<qint16>(byte - FileCodeOffset);
            level.setCell(x, y, code);
            if (code == HeroCode) {
                level.HeroX = x;
                level.HeroY = y;
            }
        }
    }
    return std::nullopt;
}

QByteArray EncodeLevelFile(const Level& level) {
    const int width = level.GridWidth;
    const int height = level.GridHeight;
    const QByteArray sizeWidth = ' ' + QByteArray::number(width + SizeLineAllowance) + ' ';
    const QByteArray sizeHeight = ' ' + QByteArray::number(height + SizeLineAllowance) + ' ';
    const QByteArray fullBorder(width + SizeLineAllowance, '0');
    const QByteArray sideBorder(FileBorder, '0');
    const QByteArray lineEnd("\r\n");

    QByteArray bytes;
    bytes.reserve((height + 3 * FileBorder) * (width + SizeLineAllowance + 2) + 32);
    bytes += "1" + lineEnd + sizeWidth + lineEnd + sizeHeight + lineEnd;
    for (int i = 0; i < FileBorder; ++i) bytes += fullBorder + lineEnd;
    for (int y = 0; y < height; ++y) {
        bytes += sideBorder;
        for (int x = 0; x < width; ++x)
            bytes += static_cast<char>(FileCodeOffset + level.cell(x, y));
        bytes += sideBorder + lineEnd;
    }
    for (int i = 0; i < FileBorder; ++i) bytes += fullBorder + lineEnd;
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
