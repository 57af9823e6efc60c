#include "editor_window.h"
#include "level_document.h"
#include "message_box_dialogs.h"

#include <QApplication>
#include <QDir>

#include <csignal>

int main(int argc, char** argv) {
    // Under a file-size limit a save must fail with an error the user is told of; by
    // default the signal would end the editor and lose the level on screen.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    MessageBoxDialogs dialogs;
    LevelDocument document(QDir::current());
    EditorWindow window(document, dialogs);
    dialogs.setParent(&window);
    window.startUp();
    return QApplication::exec();
}
