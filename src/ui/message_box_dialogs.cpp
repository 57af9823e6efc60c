#include "message_box_dialogs.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {
void showOk(QWidget* parent, QMessageBox::Icon icon, const QString& prompt, const QString& title) {
    QMessageBox box(icon, title, prompt, QMessageBox::Ok, parent);
    // The reason and the file it names can be copied into a report.
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    box.exec();
}
}  // namespace

bool MessageBoxDialogs::question(const QString& prompt, const QString& title) {
    QMessageBox box(QMessageBox::Question, title, prompt, QMessageBox::Yes | QMessageBox::No,
                    parent);
    // Alt and the first letter answer, as on a Czech desktop; the captions stay as they are.
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Ano"));
    box.button(QMessageBox::Yes)->setShortcut(QKeySequence(Qt::ALT | Qt::Key_A));
    box.button(QMessageBox::No)->setText(QStringLiteral("Ne"));
    box.button(QMessageBox::No)->setShortcut(QKeySequence(Qt::ALT | Qt::Key_N));
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

void MessageBoxDialogs::warning(const QString& prompt, const QString& title) {
    showOk(parent, QMessageBox::Warning, prompt, title);
}

void MessageBoxDialogs::information(const QString& prompt, const QString& title) {
    showOk(parent, QMessageBox::Information, prompt, title);
}

void MessageBoxDialogs::error(const QString& prompt) {
    // No title of its own: the application's name.
    showOk(parent, QMessageBox::Critical, prompt, QCoreApplication::applicationName());
}
