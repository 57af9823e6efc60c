#include "czech_qt_texts.h"
#include "editor_command_line.h"
#include "editor_window.h"
#include "file_names.h"
#include "level_document.h"
#include "message_box_dialogs.h"
#include "recent_files.h"
#include "recovery_keeper.h"
#include "recovery_store.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <future>

#include <langinfo.h>
#include <unistd.h>
#include <clocale>
#include <cstring>

namespace {
// What the window and any box need once the application object exists.
void setUpApplication() {
    // Xlib encodes the legacy window title (WM_NAME) in the C library's locale: with none set it
    // is ASCII and Czech titles arrive garbled. Qt itself assumes UTF-8 for file names and text.
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    QApplication::setDesktopFileName(QStringLiteral(VARNOK_APP_ID));
    useCzechQtTexts();  // the size fields' context menu and anything else Qt draws
}
}  // namespace

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
    // Started from the desktop menu or a file manager, nobody reads standard error: the reason
    // is shown in a box as well, when there is a display to show it on.
    const bool display =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (launch.action == EditorLaunch::Action::Fail && !isatty(STDERR_FILENO) && display) {
        QApplication app(argc, argv);
        setUpApplication();
        MessageBoxDialogs().error(launch.text);
    }
    if (launch.action != EditorLaunch::Action::Run) return launch.exitCode;

    // Under a file-size limit a save must fail with an error the user is told of; by
    // default the signal would end the editor and lose the level on screen.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication app(argc, argv);
    setUpApplication();
    MessageBoxDialogs dialogs;
    LevelDocument document(launch.levelFile, launch.spriteSheet);
    // The level file is read and drawn on a thread of its own while the window is built.
    std::future<PreparedLevel> preparing = document.prepareOpen();
    // Unsaved work survives a crash in a copy under the user's state folder.
    RecoveryKeeper keeper(document, RecoveryStore::folderFor(qEnvironmentVariable("XDG_STATE_HOME"),
                                                             userHomeFolder()));
    keeper.setLevelFile(launch.levelFile);
    EditorWindow window(document, dialogs);
    RecentFiles recentFiles;
    window.setRecentFiles(&recentFiles);
    dialogs.setParent(&window);
    window.keepRecoveryCopies(keeper);
    if (!window.startUp(std::move(preparing))) return 0;
    return QApplication::exec();
}
