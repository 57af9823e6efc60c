#include "command_line.h"
#include "commands.h"
#include "console.h"
#include "level_census.h"
#include "level_report.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QJsonObject censusJson(const LevelReport& report, const LevelCensus& census) {
    QJsonObject object = report.json();
    QJsonArray objects;
    for (const CensusEntry& entry : census.objects)
        objects.append(QJsonObject{{QStringLiteral("name"), entry.name},
                                   {QStringLiteral("count"), entry.count}});
    QJsonArray strays;
    for (const StrayCode& stray : census.strays)
        strays.append(QJsonObject{{QStringLiteral("code"), stray.code},
                                  {QStringLiteral("count"), stray.count},
                                  {QStringLiteral("note"), stray.note}});
    object.insert(QStringLiteral("objects"), objects);
    object.insert(QStringLiteral("otherCodes"), strays);
    return object;
}

void printCensus(const LevelReport& report, const LevelCensus& census) {
    const QString hero =
        report.hero
            ? QStringLiteral("hrdina na (%1, %2)").arg(report.hero->x()).arg(report.hero->y())
            : QStringLiteral("bez hrdiny");
    printLine(QStringLiteral("%1: %2 × %3, %4")
                  .arg(report.file)
                  .arg(report.width)
                  .arg(report.height)
                  .arg(hero));
    for (const QString& message : report.messages) printLine(QStringLiteral("  ! ") + message);
    for (const CensusEntry& entry : census.objects)
        printLine(QStringLiteral("  %1: %2").arg(entry.name).arg(entry.count));
    for (const StrayCode& stray : census.strays)
        printLine(
            QStringLiteral("  kód %1 (%2): %3").arg(stray.code).arg(stray.note).arg(stray.count));
}

}  // namespace

// Describes each level; a file the reader refuses is told like check tells it and makes the
// exit code 1. Other messages are shown, but the level is described all the same.
int runInfo(const Invocation& invocation) {
    bool allRead = true;
    for (const QString& file : invocation.files) {
        Level level;
        const LevelReport report = reportLevel(file, level);
        allRead = allRead && report.read;
        const LevelCensus census = report.read ? takeCensus(level) : LevelCensus();
        if (invocation.json)
            printBytes(QJsonDocument(censusJson(report, census)).toJson(QJsonDocument::Compact));
        else if (!report.read)
            printLine(report.line());
        else
            printCensus(report, census);
    }
    return allRead ? ExitOk : ExitFailed;
}
