#include "level_menu.h"

#include "editor_look.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
template <typename Widget>
Widget* placed(Widget* widget, const Placement& at, const QString& name) {
    widget->setObjectName(name);
    widget->setGeometry(at.rounded());
    return widget;
}

QLineEdit* sizeField(QWidget* parent, const Placement& at, const QString& name) {
    auto* field = placed(new QLineEdit(QStringLiteral("20"), parent), at, name);
    field->setContentsMargins(0, 0, 0, 0);
    field->setTextMargins(0, 0, 0, 0);
    return field;
}
}  // namespace

LevelMenu::LevelMenu(QWidget* parent) : QGroupBox(QStringLiteral("Menu"), parent) {
    setObjectName(QStringLiteral("levelMenu"));
    setColour(this, QPalette::WindowText, QColor(0, 0, 255));
    setPlacement({8, 400, 88.8f, 168.8f});
    auto* openButton = placed(new QPushButton(QStringLiteral("Otevřít"), this),
                              {8, 88, 72.8f, 32.8f}, QStringLiteral("openButton"));
    auto* saveButton = placed(new QPushButton(QStringLiteral("Uložit"), this),
                              {8, 128, 72.8f, 32.8f}, QStringLiteral("saveButton"));
    auto* newButton = placed(new QPushButton(QStringLiteral("Nový"), this), {8, 48, 72.8f, 32.8f},
                             QStringLiteral("newButton"));
    // The fields hold four digits and line up with the buttons' edges, the "x" between them.
    widthField = sizeField(this, {8, 24, 32.8f, 19.2f}, QStringLiteral("widthField"));
    heightField = sizeField(this, {48, 24, 32.8f, 19.2f}, QStringLiteral("heightField"));
    auto* timesLabel = placed(new QLabel(QStringLiteral("x"), this), {42, 26.4f, 4.8f, 12.8f},
                              QStringLiteral("timesLabel"));
    setColour(timesLabel, QPalette::WindowText, parent->palette().color(QPalette::WindowText));
    connect(newButton, &QPushButton::clicked, this, &LevelMenu::newRequested);
    connect(openButton, &QPushButton::clicked, this, &LevelMenu::openRequested);
    connect(saveButton, &QPushButton::clicked, this, &LevelMenu::saveRequested);
    widthField->installEventFilter(this);
    heightField->installEventFilter(this);
    connect(widthField, &QLineEdit::returnPressed, this, &LevelMenu::newRequested);
    connect(heightField, &QLineEdit::returnPressed, this, &LevelMenu::newRequested);
}

QString LevelMenu::widthText() const {
    return widthField->text();
}

QString LevelMenu::heightText() const {
    return heightField->text();
}

void LevelMenu::showSizes(int width, int height) {
    widthField->setText(QString::number(width));
    heightField->setText(QString::number(height));
}

// A field claims the undo and redo keys for its own typing even when it has none to take
// back; then they belong to the window, which takes back the level's steps.
bool LevelMenu::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field || event->type() != QEvent::ShortcutOverride) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    const bool undo = key->matches(QKeySequence::Undo);
    const bool redo = key->matches(QKeySequence::Redo) ||
                      key->keyCombination() == QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_Z) ||
                      key->keyCombination() == QKeyCombination(Qt::CTRL, Qt::Key_Y);
    if ((undo && !field->isUndoAvailable()) || (redo && !field->isRedoAvailable())) {
        event->ignore();
        return true;
    }
    return false;
}
