#include "form1.h"
#include "message_box_dialogs.h"

#include <QApplication>

#include <langinfo.h>
#include <clocale>
#include <cstring>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Xlib encodes the legacy window title (WM_NAME) in the C library's locale: with none set it
    // is ASCII and Czech titles arrive garbled. Qt itself assumes UTF-8 for file names and text.
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
    QApplication::setApplicationName(QStringLiteral("Varnok Editor"));
    MessageBoxDialogs dialogs;
    Form1 window(dialogs);
    dialogs.setParent(&window);
    window.Form_Load();
    return QApplication::exec();
}
