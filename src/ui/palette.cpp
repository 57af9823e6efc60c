// The object palette: 26 picture buttons on a strip that is dragged by its background.
#include "form1.h"

#include "map_canvas.h"
#include "tile_codes.h"

#include <QButtonGroup>
#include <QToolButton>

namespace {

struct PaletteEntry {
    int code;
    const char* caption;
};
// Top to bottom.
constexpr PaletteEntry PaletteEntries[] = {
    {0, "Podlaha"},     {1, "Zeď"},        {23, "Židle"},     {24, "Stolek"},    {25, "Bedna"},
    {26, "Květináč"},   {134, "WC"},       {27, "Koš A"},     {28, "Koš B"},     {29, "Louže"},
    {124, "Peníze"},    {125, "Teleport"}, {126, "Život"},    {127, "Exit"},     {2, "Místnost A"},
    {3, "Místnost B"},  {4, "Místnost C"}, {5, "Místnost D"}, {6, "Místnost E"}, {7, "Místnost F"},
    {8, "Místnost G"},  {9, "Místnost H"}, {135, "Hrdina"},   {136, "Boss"},     {137, "Stráž"},
    {138, "Secret :)"},
};

constexpr float EntryLeft = 8.0f;    // 120 twips
constexpr float EntryTop = 8.0f;     // 120 twips
constexpr float EntryPitch = 72.0f;  // 1080 twips
constexpr float EntrySide = 64.8f;   // 972 twips
constexpr int PictureShown = 48;

}  // namespace

void Form1::createPalette() {
    paletteGroup = new QButtonGroup(this);
    paletteGroup->setExclusive(true);
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(7.8);
    font.setBold(true);
    int place = 0;
    for (const PaletteEntry& entry : PaletteEntries) {
        auto* button = new QToolButton(Picture5);
        button->setObjectName(QStringLiteral("Option1_%1").arg(entry.code));
        button->setText(QString::fromUtf8(entry.caption));
        button->setIcon(QIcon(QStringLiteral(":/palette/%1.bmp").arg(entry.code)));
        button->setIconSize(QSize(PictureShown, PictureShown));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setFont(font);
        QPalette colours = button->palette();
        colours.setColor(QPalette::ButtonText, QColor(0, 0, 64));
        if (entry.code == 24 || entry.code == 134)
            colours.setColor(QPalette::Button, QColor(192, 192, 192));
        button->setPalette(colours);
        button->setGeometry(Placement{EntryLeft, EntryTop + EntryPitch * static_cast<float>(place),
                                      EntrySide, EntrySide}
                                .rounded());
        paletteGroup->addButton(button, entry.code);
        Option1[entry.code] = button;
        ++place;
    }
    connect(paletteGroup, &QButtonGroup::idClicked, this,
            [this](int code) { Option1_Click(code); });
}

void Form1::Option1_Click(int index) {
    SelectedCode = static_cast<qint16>(index);
    Placement outline = Shape2->placement();
    const bool tallRoom = index >= 2 && index <= 5;
    const bool wideRoom = index >= 6 && index <= 9;
    outline.width = static_cast<float>(TileSize * (tallRoom ? 3 : wideRoom ? 4 : 1));
    outline.height = static_cast<float>(TileSize * (tallRoom ? 4 : wideRoom ? 3 : 1));
    Shape2->move(outline);
}

void Form1::Picture5_MouseDown(int, int, float, float y) {
    GrabY = y;
}

void Form1::Picture5_MouseMove(int button, int, float, float y) {
    if (button == NoButton) return;
    Placement strip = Picture5->placement();
    strip.top += y - GrabY;
    Picture5->move(strip);
}
