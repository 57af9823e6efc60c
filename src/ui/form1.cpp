#include "form1.h"

#include "dialogs.h"
#include "editor_texts.h"
#include "tile_codes.h"

#include <QApplication>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>

namespace {

// Design geometry is kept in twips, 15 to a pixel.
constexpr float Twips = 15.0f;
Placement fromTwips(float left, float top, float width, float height) {
    return {left / Twips, top / Twips, width / Twips, height / Twips};
}

template <typename Widget>
Widget* placed(Widget* widget, const Placement& at) {
    widget->setGeometry(at.rounded());
    return widget;
}

QFont msSansSerif(qreal points) {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(points);
    font.setBold(true);
    return font;
}

void setColour(QWidget* widget, QPalette::ColorRole role, QColor colour) {
    QPalette colours = widget->palette();
    colours.setColor(role, colour);
    widget->setPalette(colours);
}

}  // namespace

Form1::Form1(Dialogs& dialogs) : dialogs(dialogs) {
    // The window's fonts were designed with MS Sans Serif; Liberation Sans has its widths.
    QFont::insertSubstitution(QStringLiteral("MS Sans Serif"), QStringLiteral("Liberation Sans"));
    setFont(QFont(QStringLiteral("MS Sans Serif"), 8));
    setWindowTitle(QStringLiteral("VARNOK LEVEL EDITOR"));
    QIcon icon;
    icon.addFile(QStringLiteral(":/icon/icon32.png"));
    icon.addFile(QStringLiteral(":/icon/icon16.png"));
    setWindowIcon(icon);
    setColour(this, QPalette::Window, QColor(192, 192, 192));
    setAutoFillBackground(true);
    resize(896, 641);  // 13440 x 9612 twips
    createControls();
}

Form1::~Form1() {
    showHourglass(false);
}

void Form1::createControls() {
    Command4 = placed(new QPushButton(QStringLiteral("???"), this), fromTwips(0, 0, 690, 255));
    Command4->setFont(msSansSerif(7.8));

    Picture4 = new PictureBox(this, palette().color(QPalette::Base), "Picture4");
    Picture4->move(fromTwips(1680, 1560, 1452, 12384));
    Picture5 = new PictureBox(Picture4, QColor(180, 205, 228), "Picture5");
    Picture5->move(fromTwips(0, 120, 1212, 28320));
    Picture5->onMouseDown = [this](int b, int s, float x, float y) {
        Picture5_MouseDown(b, s, x, y);
    };
    Picture5->onMouseMove = [this](int b, int s, float x, float y) {
        Picture5_MouseMove(b, s, x, y);
    };
    createPalette();

    Frame2 = new QGroupBox(QStringLiteral("Menu"), this);
    setColour(Frame2, QPalette::WindowText, QColor(0, 0, 255));
    placeWidget(Frame2, frame2Placement, fromTwips(120, 6000, 1332, 2532));
    Command3 =
        placed(new QPushButton(QStringLiteral("Otevřít"), Frame2), fromTwips(120, 1320, 1092, 492));
    Command2 =
        placed(new QPushButton(QStringLiteral("Uložit"), Frame2), fromTwips(120, 1920, 1092, 492));
    Command1 =
        placed(new QPushButton(QStringLiteral("Nový"), Frame2), fromTwips(120, 720, 1092, 492));
    Text1 = placed(new QLineEdit(QStringLiteral("20"), Frame2), fromTwips(240, 360, 372, 288));
    Text2 = placed(new QLineEdit(QStringLiteral("20"), Frame2), fromTwips(840, 360, 372, 288));
    Label1 = placed(new QLabel(QStringLiteral("x"), Frame2), fromTwips(720, 396, 72, 192));
    setColour(Label1, QPalette::WindowText, palette().color(QPalette::WindowText));
    for (QWidget* field : {static_cast<QWidget*>(Text1), static_cast<QWidget*>(Text2)})
        field->setContentsMargins(0, 0, 0, 0);
    Text1->setTextMargins(0, 0, 0, 0);
    Text2->setTextMargins(0, 0, 0, 0);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
    connect(Command4, &QPushButton::clicked, this, [this] { Command4_Click(); });

    Picture3 = new MinimapSurface(this, renderer.minimap);
    Picture3->move(fromTwips(120, 360, 2172, 1332));
    Picture3->onMouseDown = [this](int b, int s, float x, float y) {
        Picture3_MouseDown(b, s, x, y);
    };
    Picture3->onMouseMove = [this](int b, int s, float x, float y) {
        Picture3_MouseMove(b, s, x, y);
    };
    Shape1 = new OutlineShape(Picture3, QColor(255, 0, 0), "Shape1");
    Shape1->move(fromTwips(720, 240, 492, 492));

    Picture1 = new QFrame(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    Picture1->setLineWidth(2);
    setColour(Picture1, QPalette::Window, QColor(0, 0, 64));
    Picture1->setAutoFillBackground(true);
    placeWidget(Picture1, picture1Placement, fromTwips(8760, 3720, 9735, 7455));
    viewportClient = new QWidget(Picture1);
    viewportClient->setGeometry(Picture1->contentsRect());
    Picture2 = new MapSurface(viewportClient, renderer.map, sheet);
    Picture2->move(fromTwips(720, 1560, 5892, 4812));
    Picture2->onMouseDown = [this](int b, int s, float x, float y) {
        Picture2_MouseDown(b, s, x, y);
    };
    Picture2->onMouseMove = [this](int b, int s, float x, float y) {
        Picture2_MouseMove(b, s, x, y);
    };
    Shape2 = new OutlineShape(Picture2, QColor(0, 0, 255), "Shape2");
    Shape2->move(fromTwips(0, 0, 768, 768));
    // The loading label lies on the viewport itself, under the map: seen only while the map
    // is hidden for a redraw.
    Label3 =
        placed(new QLabel(EditorTexts::Loading, viewportClient), fromTwips(600, 600, 3690, 555));
    Label3->setFont(msSansSerif(24));
    setColour(Label3, QPalette::WindowText, QColor(0, 0, 255));
    Label3->lower();
    Label3->hide();

    Label2 = placed(new QLabel(QStringLiteral("Levým tl. myši kreslíte, pravým hýbete"), this),
                    fromTwips(720, 0, 2895, 255));
}

void Form1::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void Form1::Form_Resize() {
    ArrangeControls();
}

void Form1::showHourglass(bool shown) {
    // The override cursor is a stack: keep exactly one entry while the hourglass shows.
    if (shown && !hourglassShown) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!shown && hourglassShown) QApplication::restoreOverrideCursor();
    hourglassShown = shown;
}
