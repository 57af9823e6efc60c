#include "command_line.h"
#include "commands.h"
#include "console.h"
#include "czech_qt_texts.h"
#include "file_names.h"

#include <QCoreApplication>

namespace {
// Qt's own warnings (an image that does not load, an encoder's complaint) would add lines to
// the program's one-line messages, which say what failed in the user's terms already.
void keepQuietButForErrors(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        printError(QStringLiteral("varnok-level: ") + message);
}
}  // namespace

// A window-less companion of the editor: no GUI application, so no display and no platform
// plugin are needed; images are drawn into QImage, which works without one.
int main(int argc, char** argv) {
    qInstallMessageHandler(keepQuietButForErrors);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("varnok-level"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VARNOK_VERSION));
    useCzechQtTexts();  // the help's lines that Qt writes

    // Taken from argv byte for byte: a file name need not be UTF-8.
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << fileNameFromBytes(QByteArray(argv[i]));
    const ParsedCommandLine parsed = parseCommandLine(arguments);
    switch (parsed.outcome) {
        case ParsedCommandLine::Outcome::Help:
        case ParsedCommandLine::Outcome::Version:
            printLine(parsed.text.trimmed());
            return ExitOk;
        case ParsedCommandLine::Outcome::WrongUsage:
            printError(QStringLiteral("varnok-level: ") + parsed.text);
            printError(parsed.usage.trimmed());
            return ExitWrongUsage;
        case ParsedCommandLine::Outcome::Run:
            break;
    }
    switch (parsed.invocation.command) {
        case Command::Check:
            return runCheck(parsed.invocation);
        case Command::Info:
            return runInfo(parsed.invocation);
        case Command::Render:
            return runRender(parsed.invocation);
    }
    return ExitWrongUsage;
}
