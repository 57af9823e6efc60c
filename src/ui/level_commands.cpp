// Start-up and the command buttons: New, Save, Open, Help, and the load flow.
#include "form1.h"

#include "dialogs.h"
#include "editor_texts.h"
#include "level_file.h"
#include "tile_codes.h"

#include <QFile>
#include <QLineEdit>

namespace {

// A side New can make: a whole number from 3 (room for the frame) to the largest side.
std::optional<int> sideFromField(const QString& text) {
    bool ok = false;
    const int side = text.trimmed().toInt(&ok, 10);
    if (!ok || side < 3 || side > MaxLevelSide) return std::nullopt;
    return side;
}

bool holdsHero(const Level& level) {
    for (int x = 0; x < level.GridWidth; ++x)
        for (int y = 0; y < level.GridHeight; ++y)
            if (level.cell(x, y) == HeroCode) return true;
    return false;
}

}  // namespace

void Form1::Form_Load() {
    Option1_Click(WallToolCode);
    LoadSpriteSheet();
    show();
    LoadLevel(LoadMoment::StartUp);
    Command4_Click();
}

void Form1::LoadSpriteSheet() {
    QImage image;
    if (QFile::exists(SpriteSheetFileName) &&
        (!image.load(SpriteSheetFileName) || image.width() < SheetColumns ||
         image.height() < SheetRows)) {
        dialogs.error(EditorTexts::UnreadableSheet(SpriteSheetFileName));
        image = QImage();
    }
    if (image.isNull()) image.load(QStringLiteral(":/sheet/EditPic.jpg"));
    sheet = SpriteSheet(image);
}

void Form1::LoadLevel(LoadMoment moment) {
    if (const auto refusal = ReadLevelFile(level, dialogs)) {
        if (!refusal->missing || moment == LoadMoment::Open) dialogs.error(refusal->message);
        // At start-up the editor goes on with a new level; on Open the level stays.
        if (moment == LoadMoment::StartUp) Command1_Click();
        return;
    }
    Text1->setText(QString::number(level.GridWidth));
    Text2->setText(QString::number(level.GridHeight));
    RedrawLevel();
    ArrangeControls();
}

void Form1::Command1_Click() {
    const auto width = sideFromField(Text1->text());
    const auto height = sideFromField(Text2->text());
    if (!width || !height) {
        dialogs.warning(EditorTexts::BadNewSize(MaxLevelSide), EditorTexts::NoHeroTitle);
        return;
    }
    level.Allocate(*width, *height);
    RedrawLevel();
    ArrangeControls();
}

void Form1::Command2_Click() {
    if (!dialogs.question(EditorTexts::SaveQuestion, EditorTexts::SaveTitle)) return;
    if (!holdsHero(level)) {
        dialogs.warning(EditorTexts::NoHero, EditorTexts::NoHeroTitle);
        return;
    }
    if (const auto reason = WriteLevelFile(level)) dialogs.error(*reason);
}

void Form1::Command3_Click() {
    if (dialogs.question(EditorTexts::OpenQuestion, EditorTexts::OpenTitle))
        LoadLevel(LoadMoment::Open);
}

void Form1::Command4_Click() {
    dialogs.information(EditorTexts::HelpText(), EditorTexts::HelpTitle);
}
