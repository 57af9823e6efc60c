#include "editor_command_line.h"
#include "form1.h"
#include "message_box_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char** argv) {
    // Help, version and a path the editor cannot use are answered before a display is needed.
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QFile::decodeName(argv[i]);
    const EditorLaunch launch =
        parseEditorCommandLine(arguments, QDir::currentPath(), QDir::homePath());
    if (launch.action == EditorLaunch::Action::Print) std::fputs(qPrintable(launch.text), stdout);
    if (launch.action == EditorLaunch::Action::Fail)
        std::fprintf(stderr, "varnok-editor: %s\n", qPrintable(launch.text));
    if (launch.action != EditorLaunch::Action::Run) return launch.exitCode;

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    QApplication::setDesktopFileName(QStringLiteral(VARNOK_APP_ID));
    // Until the window takes launch.levelFile and launch.spriteSheet, it works in their folder.
    QDir::setCurrent(QFileInfo(launch.levelFile).absolutePath());
    MessageBoxDialogs dialogs;
    Form1 window(dialogs);
    dialogs.setParent(&window);
    window.Form_Load();
    return QApplication::exec();
}
