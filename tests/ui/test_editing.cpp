#include "editor_texts.h"
#include "form1.h"
#include "level_file.h"
#include "mouse.h"
#include "recording_dialogs.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace {

QByteArray fileBytes() {
    QFile file(LevelFileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

void writeLevel(const Level& level) {
    QVERIFY(!WriteLevelFile(level, LevelFileName));
}

Level emptyLevel(int width, int height) {
    Level level;
    level.Allocate(width, height);
    return level;
}

QPointF cellCentre(int column, int row) {
    return {64.0 * column + 32, 64.0 * row + 32};
}

void writeAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray jpeg(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG");
    return bytes;
}

}  // namespace

class EditingTest : public QObject {
    Q_OBJECT

    QTemporaryDir folder;
    RecordingDialogs dialogs;

  private slots:
    void initTestCase() { QDir::setCurrent(folder.path()); }
    void init() {
        QFile::remove(LevelFileName);
        QFile::remove(SpriteSheetFileName);
        dialogs.shown.clear();
        dialogs.answers.clear();
    }

    void mapViewPaintsAndScrolls() {
        writeLevel(emptyLevel(40, 40));
        Form1 form(dialogs);
        form.Form_Load();
        form.resize(919, 700);  // a 649-pixel viewport beside the 240-pixel left column
        QCOMPARE(form.picture1Placement.width, 649.0f);
        QWidget* map = form.Picture2;

        press(map, {600, 330});  // column 9, row 5: paints at once and scrolls right
        QCOMPARE(form.level.cell(9, 5), 14);
        QCOMPARE(form.Picture2->placement().left, -32.0f);
        QCOMPARE(form.Shape2->placement().left, 576.0f);

        Placement at = form.Picture2->placement();
        at.left = -200;
        form.Picture2->move(at);
        press(map, {250, 330});  // column 3; the left zone ends below 264
        QCOMPARE(form.Picture2->placement().left, -168.0f);
        at.left = -40;
        form.Picture2->move(at);
        press(map, {130, 460});  // column 2; the zone ends below 104
        QCOMPARE(form.Picture2->placement().left, -40.0f);
        QCOMPARE(form.level.cell(2, 7), 17);  // joined to the frame on its left

        // Outside the frame's inside nothing is painted and the outline stays.
        const Placement outline = form.Shape2->placement();
        for (QPointF point :
             {cellCentre(1, 10), cellCentre(10, 1), cellCentre(38, 10), cellCentre(10, 38)}) {
            const int column = CellUnder(float(point.x()));
            const int row = CellUnder(float(point.y()));
            const int before = form.level.cell(column, row);
            press(map, point);
            QCOMPARE(form.level.cell(column, row), before);
        }
        QCOMPARE(form.Shape2->placement(), outline);

        // The cell painted last is not painted again, across a palette change and New.
        QTest::mouseClick(form.Option1.at(0), Qt::LeftButton);
        press(map, cellCentre(2, 7));
        QCOMPARE(form.level.cell(2, 7), 17);
        form.Text1->setText(" 25 ");
        form.Command1_Click();
        QCOMPARE(form.level.GridWidth, 25);
        QVERIFY(form.Option1.at(WallToolCode)->isChecked());
        press(map, cellCentre(2, 7));
        QCOMPARE(form.level.cell(2, 7), 0);
        press(map, cellCentre(3, 7));
        press(map, cellCentre(2, 7));
        QVERIFY(form.level.cell(2, 7) >= 1 && form.level.cell(2, 7) <= 4);

        // Left and right together only move the outline; a right drag moves the map with the
        // pressed point under the pointer.
        drag(map, cellCentre(6, 6), Qt::LeftButton | Qt::RightButton);
        QCOMPARE(form.level.cell(6, 6), 0);
        QCOMPARE(form.Shape2->placement().left, 384.0f);
        press(map, {300, 300}, Qt::RightButton);
        drag(map, {310, 305}, Qt::RightButton);
        QCOMPARE(form.Picture2->placement().left, 10.0f);
        QCOMPARE(form.Picture2->placement().top, 5.0f);
        QCOMPARE(form.Shape1->placement().left, -10 / 64.0f * 6);

        // The minimap: a press paints without moving the view, a left drag moves and paints,
        // a right drag only moves.
        press(form.Picture3, {30, 60});  // map (320, 640): column 5, row 10
        QCOMPARE(form.level.cell(5, 10), 14);
        QCOMPARE(form.Picture2->placement().left, 10.0f);
        drag(form.Picture3, {42, 60});
        QCOMPARE(form.level.cell(7, 10), 14);
        QCOMPARE(form.Picture2->placement().left, -448 + form.picture1Placement.width / 2);
        drag(form.Picture3, {54, 90}, Qt::RightButton);
        QCOMPARE(form.level.cell(9, 15), 0);
        QCOMPARE(form.Picture2->placement().top, -960 + form.picture1Placement.height / 2);
    }

    void startUpAndCommandsFollowTheirFlows() {
        Level level = emptyLevel(30, 30);
        level.setCell(29, 29, HeroCode);  // the only hero, in the last cell
        writeLevel(level);
        Form1 form(dialogs);
        form.Form_Load();
        QCOMPARE(form.Text1->text(), "30");
        QCOMPARE(form.Text2->text(), "30");
        QCOMPARE(dialogs.shown, QStringList{"information|Nápověda|" + EditorTexts::HelpText()});
        QCOMPARE(EditorTexts::HelpText().count("\r\n"), 12);
        QVERIFY(EditorTexts::HelpText().contains("objektů, \r\nstačí"));
        QVERIFY(form.Picture2->isVisible() && form.Label3->isHidden());

        const QByteArray before = fileBytes();
        dialogs.answers = {false};
        form.Command2_Click();  // answered No
        QCOMPARE(dialogs.shown.last(), "question|Uložit přes starý|" + EditorTexts::SaveQuestion);
        form.Command2_Click();  // Yes: the hero in the last cell is found, the file written
        QCOMPARE(fileBytes(), EncodeLevelFile(form.level));
        QVERIFY(fileBytes() != before);

        dialogs.answers = {false};
        form.Command3_Click();  // Open answered No
        QCOMPARE(form.level.GridWidth, 30);

        form.Text1->setText("20");
        form.Command1_Click();
        const QByteArray saved = fileBytes();
        form.Command2_Click();  // no hero now
        QCOMPARE(dialogs.shown.last(), "warning|Pozor|" + EditorTexts::NoHero);
        QCOMPARE(fileBytes(), saved);

        QFile::remove(LevelFileName);
        form.Command3_Click();  // Open of a missing file: told, level kept
        QVERIFY(dialogs.shown.last().startsWith("error||Soubor level99.VRK"));
        QCOMPARE(form.level.GridWidth, 20);
    }

    void aFailedRedrawRecoversWithNew() {
        Level level = emptyLevel(10, 10);
        level.setCell(4, 4, 200);  // no picture for this code
        writeLevel(level);
        Form1 form(dialogs);
        form.Form_Load();
        QCOMPARE(dialogs.shown.value(0), "error||" + EditorTexts::RedrawFailed);
        QVERIFY(form.Picture2->isHidden() && !form.Label3->isHidden());
        QVERIFY(QApplication::overrideCursor());
        form.Command1_Click();
        form.Command1_Click();
        QVERIFY(!form.Picture2->isHidden() && form.Label3->isHidden());
        QVERIFY(!QApplication::overrideCursor());
    }

    // Bad files and bad input: the editor tells what it cannot use and keeps what it has.
    void aSheetItCannotUseGivesWayToTheBuiltInOne() {
        const QString told = "error||" + EditorTexts::UnreadableSheet(SpriteSheetFileName);
        const struct {
            const char* what;
            QByteArray bytes;
            bool refused;
            QSize cell;
        } sheets[] = {
            {"missing", {}, false, {64, 64}},
            {"not a JPEG", "GIF89a, or rather nothing at all", true, {64, 64}},
            {"empty", "", true, {64, 64}},
            {"too small to cut", jpeg(9, 20), true, {64, 64}},
            {"half size", jpeg(320, 448), false, {32, 32}},
            {"uneven", jpeg(105, 150), false, {10, 10}},  // the remainder is never shown
        };
        for (const auto& sheet : sheets) {
            dialogs.shown.clear();
            if (!sheet.bytes.isNull()) writeAll(SpriteSheetFileName, sheet.bytes);
            Form1 form(dialogs);
            form.Form_Load();
            QVERIFY2((dialogs.shown.value(0) == told) == sheet.refused, sheet.what);
            QCOMPARE(dialogs.shown.last().section('|', 1, 1), EditorTexts::HelpTitle);
            QCOMPARE(form.sheet.cellSize(), sheet.cell);
            QVERIFY(form.Picture2->isVisible());  // the new level was drawn
        }
    }

    void badSizesAndFilesLeaveTheLevelAsItIs() {
        Form1 form(dialogs);
        form.Form_Load();
        form.Picture2_MouseDown(1, 0, 5 * 64 + 5, 5 * 64 + 5);  // a New or a read would clear it
        const QByteArray level = EncodeLevelFile(form.level);
        QCOMPARE(form.level.cell(5, 5), 14);
        const QString warned = "warning|Pozor|" + EditorTexts::BadNewSize(MaxLevelSide);
        const char* texts[] = {
            "", "  ", "-20", "twenty", "20.5", "0x20", "2", "1001", "99999999999999999999999"};
        for (QLineEdit* field : {form.Text1, form.Text2})
            for (const char* text : texts) {
                dialogs.shown.clear();
                form.Text1->setText("20");
                form.Text2->setText("20");
                field->setText(text);
                form.Command1_Click();
                QVERIFY2(dialogs.shown == QStringList{warned}, text);
                QCOMPARE(EncodeLevelFile(form.level), level);
            }
        const QByteArray files[] = {"",
                                    "\x7f"
                                    "ELF\x02\x01\x01\0\0\0",
                                    "1\r\n 34 \r\n", "1\r\n 100000 \r\n 100000 \r\n",
                                    "1\r\n -1 \r\n 34 \r\n"};
        for (const QByteArray& bytes : files) {
            dialogs.shown.clear();
            writeAll(LevelFileName, bytes);
            form.Command3_Click();
            QCOMPARE(dialogs.shown.size(), 2);
            QVERIFY(dialogs.shown.last().startsWith("error||Soubor level99.VRK"));
            QCOMPARE(EncodeLevelFile(form.level), level);
        }

        // Where the file should be there is a folder: nothing opens, nothing is saved.
        QFile::remove(LevelFileName);
        QVERIFY(QDir().mkdir(LevelFileName));
        form.Picture2_MouseDown(1, 0, 7 * 64 + 5, 7 * 64 + 5);
        form.Option1_Click(HeroCode);
        form.Picture2_MouseDown(1, 0, 9 * 64 + 5, 9 * 64 + 5);
        const QByteArray withHero = EncodeLevelFile(form.level);
        dialogs.shown.clear();
        form.Command3_Click();
        form.Command2_Click();
        QCOMPARE(dialogs.shown.size(), 4);
        QVERIFY(dialogs.shown[1].startsWith("error||Soubor level99.VRK nelze otevřít"));
        QVERIFY(
            dialogs.shown[3].startsWith("error||Level se nepodařilo uložit do souboru "
                                        "level99.VRK"));
        QCOMPARE(EncodeLevelFile(form.level), withHero);
        QVERIFY(QFileInfo(LevelFileName).isDir());
        QDir().rmdir(LevelFileName);

        form.Text1->setText(" +3 ");
        form.Text2->setText("007");
        form.Command1_Click();
        QCOMPARE(form.level.GridWidth, 3);
        QCOMPARE(form.level.GridHeight, 7);
    }
};

QTEST_MAIN(EditingTest)
#include "test_editing.moc"
