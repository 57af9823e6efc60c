#include "message_box_dialogs.h"

#include "level_file_dialog.h"
#include "message_lines.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

#include <algorithm>

namespace {
// A message box wraps its text at about half the screen's width, which leaves single words on
// lines of their own. Its text is set by lines: the box is as wide as the longest one, so that
// each stays whole, as far as the screen allows.
void keepLinesWhole(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label) return;
    const QFontMetrics metrics(label->font());
    int widest = 0;
    for (const QString& line : box.text().split('\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    const QScreen* screen = box.screen();
    const int room = screen ? screen->availableGeometry().width() * 4 / 5 - 100 : widest;
    label->setMinimumWidth(std::min(widest + 2, room));
}

enum class Selectable { No, Yes };

void showOk(QWidget* parent, QMessageBox::Icon icon, const QString& prompt, const QString& title,
            Selectable selectable) {
    QMessageBox box(icon, title, QString(), QMessageBox::Ok, parent);
    box.button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (selectable == Selectable::Yes || !label || !grid) {
        // The reason and the file it names can be copied into a report.
        box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        box.setText(prompt);
        keepLinesWhole(box);
    } else {
        // The lines are shown by MessageLines in the label's place; Ctrl+C copies them. The
        // label keeps the text, plain and hidden, as the box's text.
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::NoTextInteraction);
        box.setText(prompt);
        label->hide();
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
        grid->addWidget(new MessageLines(prompt, label->font(), &box), row, column, rows, columns);
        auto* copy = new QShortcut(QKeySequence::Copy, &box);
        QObject::connect(copy, &QShortcut::activated, &box, [prompt] {
            QGuiApplication::clipboard()->setText(
                QString(prompt).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        });
    }
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
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    keepLinesWhole(box);
    return box.exec() == QMessageBox::Yes;
}

void MessageBoxDialogs::warning(const QString& prompt, const QString& title) {
    showOk(parent, QMessageBox::Warning, prompt, title, Selectable::Yes);
}

void MessageBoxDialogs::information(const QString& prompt, const QString& title) {
    showOk(parent, QMessageBox::Information, prompt, title, Selectable::No);
}

void MessageBoxDialogs::error(const QString& prompt) {
    // No title of its own: the application's name.
    showOk(parent, QMessageBox::Critical, prompt, QCoreApplication::applicationName(),
           Selectable::Yes);
}

QString MessageBoxDialogs::levelFileToOpen(const QString& folder, const QStringList& recent) {
    return chooseLevelFile(parent, false, folder, recent);
}

QString MessageBoxDialogs::levelFileToSave(const QString& folder, const QStringList& recent) {
    return chooseLevelFile(parent, true, folder, recent);
}
