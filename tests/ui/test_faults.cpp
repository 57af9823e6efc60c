#include "editor_texts.h"
#include "form1.h"
#include "level_file.h"
#include "recording_dialogs.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

namespace {

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

// Bad files and bad input: the editor tells what it cannot use and keeps what it has.
class FaultsTest : public QObject {
    Q_OBJECT

    QTemporaryDir folder;
    RecordingDialogs dialogs;

  private slots:
    void initTestCase() { QDir::setCurrent(folder.path()); }
    void init() {
        QFile::remove(LevelFileName);
        QFile::remove(SpriteSheetFileName);
        dialogs.shown.clear();
    }

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

    void newRefusesSizesItCannotMake() {
        Form1 form(dialogs);
        form.Form_Load();
        const QString warned = "warning|Pozor|" + EditorTexts::BadNewSize(MaxLevelSide);
        form.Picture2_MouseDown(1, 0, 5 * 64 + 5, 5 * 64 + 5);  // a New would clear this wall
        const QByteArray level = EncodeLevelFile(form.level);
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
        form.Text1->setText(" +3 ");
        form.Text2->setText("007");
        form.Command1_Click();
        QCOMPARE(form.level.GridWidth, 3);
        QCOMPARE(form.level.GridHeight, 7);
    }

    void aFileItCannotUseLeavesTheLevelAsItIs() {
        Form1 form(dialogs);
        form.Form_Load();
        form.Picture2_MouseDown(1, 0, 5 * 64 + 5, 5 * 64 + 5);
        const QByteArray level = EncodeLevelFile(form.level);
        QCOMPARE(form.level.cell(5, 5), 14);
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
    }
};

QTEST_MAIN(FaultsTest)
#include "test_faults.moc"
