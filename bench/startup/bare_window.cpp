// The floor of the start-up race: what any Qt Widgets program pays to show a window of the
// editor's default size and one message box over it, built with the editor's toolchain.
#include <QApplication>
#include <QMessageBox>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("VARNOK LEVEL EDITOR"));
    window.resize(896, 641);
    window.show();
    QMessageBox box(QMessageBox::Information, QStringLiteral("Nápověda"),
                    QStringLiteral("Holé okno Qt se stejným oknem zprávy jako editor."),
                    QMessageBox::Ok, &window);
    return box.exec();
}
