#include "command_line.h"
#include "commands.h"
#include "console.h"
#include "level_report.h"

#include <QJsonDocument>

int runCheck(const Invocation& invocation) {
    bool allOk = true;
    for (const QString& file : invocation.files) {
        Level level;
        const LevelReport report = reportLevel(file, level);
        allOk = allOk && report.ok();
        if (invocation.json)
            printBytes(QJsonDocument(report.json()).toJson(QJsonDocument::Compact));
        else
            printLine(report.line());
    }
    return allOk ? ExitOk : ExitFailed;
}
