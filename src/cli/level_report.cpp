#include "level_report.h"

#include "level.h"
#include "tile_codes.h"

#include "file_names.h"
#include "level_file.h"

#include <QFileInfo>
#include <QJsonArray>

QString LevelReport::line() const {
    if (!ok()) return file + QStringLiteral(": ") + messages.join(QStringLiteral(" "));
    return QStringLiteral("%1: ok, %2 × %3, hrdina na (%4, %5)")
        .arg(file)
        .arg(width)
        .arg(height)
        .arg(hero->x())
        .arg(hero->y());
}

QJsonObject LevelReport::json() const {
    QJsonObject object{{QStringLiteral("file"), file},
                       {QStringLiteral("ok"), ok()},
                       {QStringLiteral("width"), read ? QJsonValue(width) : QJsonValue()},
                       {QStringLiteral("height"), read ? QJsonValue(height) : QJsonValue()},
                       {QStringLiteral("messages"), QJsonArray::fromStringList(messages)}};
    object.insert(QStringLiteral("hero"), hero ? QJsonObject{{QStringLiteral("x"), hero->x()},
                                                             {QStringLiteral("y"), hero->y()}}
                                               : QJsonValue());
    return object;
}

QString noPictureMessage(const QString& path, const Level& level, QPoint cell) {
    return QStringLiteral("Soubor %1: kód %2 v buňce (%3, %4) nemá obrázek.")
        .arg(shownFileName(QFileInfo(path).fileName()))
        .arg(level.cell(cell.x(), cell.y()))
        .arg(cell.x())
        .arg(cell.y());
}

namespace {
// The editor draws its wall frame one cell inside the level's edge as soon as a level is read.
// When every hero start lies on that line, the frame covers them all: the hero the editor
// would lose, else nothing.
std::optional<QPoint> heroUnderFrame(const Level& level) {
    const int right = level.width() - 2, bottom = level.height() - 2;
    const auto onFrame = [&](int x, int y) {
        return ((x == 1 || x == right) && y >= 1 && y <= bottom) ||
               ((y == 1 || y == bottom) && x >= 1 && x <= right);
    };
    std::optional<QPoint> covered;
    for (int y = 0; y < level.height(); ++y)
        for (int x = 0; x < level.width(); ++x) {
            if (level.cell(x, y) != HeroCode) continue;
            if (!onFrame(x, y)) return std::nullopt;
            covered = QPoint(x, y);
        }
    return covered;
}
}  // namespace

LevelReport reportLevel(const QString& path, Level& level) {
    LevelReport report;
    report.file = shownFileName(path);  // as typed, with bytes that are not UTF-8 escaped
    const LevelReadResult result = readLevelFile(level, path);
    if (!result.ok()) {
        report.messages << result.refusal;
        return report;
    }
    report.read = true;
    report.width = level.width();
    report.height = level.height();
    if (!result.warning.isEmpty()) report.messages << result.warning;
    // The redraw right after reading stops at this cell, and the editor tells it.
    if (const std::optional<QPoint> cell = firstCellWithoutPicture(level))
        report.messages << noPictureMessage(path, level, *cell);
    // What Save asks for before it writes anything.
    if (!containsHero(level))
        report.messages << QString::fromUtf8(NoHeroMessage);
    else if (const std::optional<QPoint> covered = heroUnderFrame(level))
        report.messages << QStringLiteral(
                               "Rámeček, který editor kreslí jednu buňku od okraje, "
                               "zakryje hrdinu na (%1, %2) a level tak přijde o "
                               "počáteční pozici.")
                               .arg(covered->x())
                               .arg(covered->y());
    else
        report.hero = level.hero();
    return report;
}
