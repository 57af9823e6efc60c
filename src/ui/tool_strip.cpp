#include "tool_strip.h"

#include "editor_look.h"
#include "lazy_icon_engine.h"
#include "tile_codes.h"
#include "tools.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPainter>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr float StripTop = 8.0f;
constexpr float ButtonLeft = 8.0f;
constexpr float ButtonTop = 8.0f;
constexpr float ButtonPitch = 72.0f;
constexpr float ButtonSide = 64.8f;
constexpr int PictureShown = 48;

// A palette button whose pressed state cannot be missed: a thick dark outline inside its
// edge, over the style's own sunken look, which is close to some pictures' grey.
class ToolButton : public QToolButton {
  public:
    using QToolButton::QToolButton;

  protected:
    void paintEvent(QPaintEvent* event) override {
        QToolButton::paintEvent(event);
        if (!isChecked()) return;
        QPainter painter(this);
        painter.setPen(QPen(QColor(0, 0, 64), 3));
        painter.drawRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
    }
};
}  // namespace

ToolStrip::ToolStrip(QWidget* parent)
    : MouseSurface(parent, parent->palette().color(QPalette::Base),
                   QStringLiteral("toolStripViewport")) {
    MouseSurface::setPlacement({112, 104, 96.8f, 825.6f});
    strip = new MouseSurface(this, QColor(180, 205, 228), QStringLiteral("toolStrip"));
    strip->setPlacement({0, StripTop, 80.8f, 1888});
    connect(strip, &MouseSurface::pressed, this,
            [this](Qt::MouseButtons, QPointF position) { toolStripPressed(position); });
    connect(strip, &MouseSurface::moved, this, &ToolStrip::toolStripDragged);
    createButtons();
}

void ToolStrip::createButtons() {
    toolButtons = new QButtonGroup(this);
    toolButtons->setExclusive(true);
    const QFont font = boldSansSerif(7.8);
    float top = ButtonTop;
    for (const Tool& tool : paletteTools()) {
        auto* button = new ToolButton(strip);
        button->setObjectName(QStringLiteral("toolButton_%1").arg(tool.code));
        button->setText(tool.name());
        button->setIcon(
            QIcon(new LazyIconEngine(QStringLiteral(":/palette/%1.bmp").arg(tool.code))));
        button->setIconSize(QSize(PictureShown, PictureShown));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setFont(font);
        QPalette colours = button->palette();
        colours.setColor(QPalette::ButtonText, QColor(0, 0, 64));
        if (tool.code == 24 || tool.code == ToiletCode)
            colours.setColor(QPalette::Button, QColor(192, 192, 192));
        button->setPalette(colours);
        button->setGeometry(Placement{ButtonLeft, top, ButtonSide, ButtonSide}.rounded());
        // At start most of the strip is out of view: its captions are measured when drawn.
        shrinkToFitWhenDrawn(button, 4);
        toolButtons->addButton(button, tool.code);
        top += ButtonPitch;
    }
    connect(toolButtons, &QButtonGroup::idClicked, this, &ToolStrip::toolSelected);
}

bool ToolStrip::moveViewport(const Placement& next) {
    Placement widened = strip->placement();
    // A strip scrolled to its last entry stays there when the viewport grows, rather than
    // leaving an empty gap below it; no further down than where it shows the first.
    const bool atItsEnd = widened.top <= placement().height - widened.height;
    const bool moved = MouseSurface::setPlacement(next);
    widened.width = placement().width;
    if (atItsEnd && widened.top < placement().height - widened.height)
        widened.top = std::min(StripTop, placement().height - widened.height);
    strip->setPlacement(widened);
    return moved;
}

const Placement& ToolStrip::stripPlacement() const {
    return strip->placement();
}

void ToolStrip::pressTool(int code) {
    QAbstractButton* button = toolButtons->button(code);
    if (!button || button->isChecked()) return;
    button->setChecked(true);
    emit toolSelected(code);
}

void ToolStrip::toolStripPressed(QPointF position) {
    toolStripGrabY = static_cast<float>(position.y());
}

void ToolStrip::toolStripDragged(Qt::MouseButtons buttons, QPointF position) {
    if (buttons == Qt::NoButton) return;
    Placement moved = strip->placement();
    moved.top += static_cast<float>(position.y()) - toolStripGrabY;
    strip->setPlacement(moved);
}

void ToolStrip::wheelEvent(QWheelEvent* event) {
    // A notch is 120. The strip's top stays between its place at start, which shows the first
    // entry, and the place where its bottom meets the viewport's, which shows the last.
    constexpr float PixelsPerEighth = ButtonPitch / 120.0f;
    Placement moved = strip->placement();
    moved.top =
        scrolledWithin(moved.top, PixelsPerEighth * static_cast<float>(event->angleDelta().y()),
                       placement().height - moved.height, StripTop);
    strip->setPlacement(moved);
    event->accept();
}
