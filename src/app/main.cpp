#include "czech_qt_texts.h"
#include "editor_command_line.h"
#include "editor_window.h"
#include "file_names.h"
#include "level_document.h"
#include "message_box_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdio>

#include <langinfo.h>
#include <clocale>
#include <cstring>

int main(int argc, char** argv) {
    // Help, version and a path the editor cannot use are answered before a display is needed.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << fileNameFromBytes(QByteArray(argv[i]));  // any bytes
    const EditorLaunch launch =
        parseEditorCommandLine(arguments, QDir::currentPath(), userHomeFolder());
    if (launch.action == EditorLaunch::Action::Print) std::fputs(qPrintable(launch.text), stdout);
    if (launch.action == EditorLaunch::Action::Fail)
        std::fprintf(stderr, "varnok-editor: %s\n", qPrintable(launch.text));
    if (launch.action != EditorLaunch::Action::Run) return launch.exitCode;

    // Under a file-size limit a save must fail with an error the user is told of; by
    // default the signal would end the editor and lose the level on screen.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication app(argc, argv);
    // Xlib encodes the legacy window title (WM_NAME) in the C library's locale: with none set it
    // is ASCII and Czech titles arrive garbled. Qt itself assumes UTF-8 for file names and text.
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    useCzechQtTexts();  // the size fields' context menu and anything else Qt draws
    QApplication::setDesktopFileName(QStringLiteral(VARNOK_APP_ID));
    MessageBoxDialogs dialogs;
    LevelDocument document(launch.levelFile, launch.spriteSheet);
    EditorWindow window(document, dialogs);
    dialogs.setParent(&window);
    window.startUp();
    return QApplication::exec();
}
