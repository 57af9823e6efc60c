#include "editor_window.h"
#include "level_document.h"
#include "message_box_dialogs.h"

#include <QApplication>
#include <QDir>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    MessageBoxDialogs dialogs;
    LevelDocument document(QDir::current());
    EditorWindow window(document, dialogs);
    dialogs.setParent(&window);
    window.startUp();
    return QApplication::exec();
}
