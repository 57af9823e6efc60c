#include "form1.h"
#include "message_box_dialogs.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    MessageBoxDialogs dialogs;
    Form1 window(dialogs);
    dialogs.setParent(&window);
    window.Form_Load();
    return QApplication::exec();
}
