#include "form1.h"
#include "mouse.h"
#include "recording_dialogs.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {
// Placements agree when they match to a hundredth of a pixel.
void compareNear(const Placement& actual, const Placement& expected) {
    auto hundredths = [](const Placement& p) {
        return Placement{p.left * 100, p.top * 100, p.width * 100, p.height * 100}.rounded();
    };
    QCOMPARE(hundredths(actual), hundredths(expected));
}
}  // namespace

class WindowTest : public QObject {
    Q_OBJECT

    RecordingDialogs dialogs;

  private slots:
    void controlsStartAtTheirDesignPlaces() {
        Form1 form(dialogs);
        QCOMPARE(form.windowTitle(), "VARNOK LEVEL EDITOR");
        QCOMPARE(form.size(), QSize(896, 641));
        compareNear(form.Picture3->placement(), {8, 24, 144.8f, 88.8f});
        compareNear(form.picture1Placement, {584, 248, 649, 497});
        compareNear(form.Picture2->placement(), {48, 104, 392.8f, 320.8f});
        compareNear(form.Picture4->placement(), {112, 104, 96.8f, 825.6f});
        compareNear(form.Picture5->placement(), {0, 8, 80.8f, 1888});
        compareNear(form.frame2Placement, {8, 400, 88.8f, 168.8f});
        compareNear(form.Shape2->placement(), {0, 0, 51.2f, 51.2f});
        QCOMPARE(form.Command1->geometry(), QRect(8, 48, 73, 33));
        QCOMPARE(form.Text2->geometry(), QRect(56, 24, 25, 19));
        QCOMPARE(form.Option1.size(), std::size_t(26));
        QCOMPARE(form.Option1.at(138)->geometry(), QRect(8, 8 + 72 * 25, 65, 65));
        QCOMPARE(form.Option1.at(24)->palette().color(QPalette::Button), QColor(192, 192, 192));
        QVERIFY(form.Label3->isHidden());
    }

    void layoutFollowsTheWindowAndTheMinimap() {
        Form1 form(dialogs);
        form.show();
        form.Command1_Click();  // a 20 x 20 level: minimap 120 x 120 at (10, 17)
        form.resize(900, 640);
        compareNear(form.Picture3->placement(), {10, 17, 120, 120});
        compareNear(form.frame2Placement, {10, 461.2f, 120, 168.8f});
        compareNear(form.Picture4->placement(), {10, 147, 120, 304.2f});
        compareNear(form.Picture5->placement(), {0, 8, 120, 1888});
        compareNear(form.picture1Placement, {140, 17, 750, 613});

        form.resize(1000, 740);
        compareNear(form.frame2Placement, {10, 561.2f, 120, 168.8f});
        compareNear(form.Picture4->placement(), {10, 147, 120, 404.2f});
        compareNear(form.picture1Placement, {140, 17, 850, 713});

        form.Text1->setText("40"), form.Text2->setText("40");
        form.Command1_Click();
        compareNear(form.Picture3->placement(), {10, 17, 240, 240});
        compareNear(form.frame2Placement, {10, 561.2f, 240, 168.8f});
        QCOMPARE(form.Picture4->placement().width, 240.0f);
        QCOMPARE(form.picture1Placement.left, 260.0f);

        // Too small: the moves that would get a negative size are skipped, the rest run.
        const Placement palette = form.Picture4->placement();
        form.resize(400, 300);
        compareNear(form.Picture4->placement(), palette);
        compareNear(form.frame2Placement, {10, 121.2f, 240, 168.8f});
        compareNear(form.picture1Placement, {260, 17, 130, 273});
        form.resize(200, 20);
        compareNear(form.picture1Placement, {260, 17, 130, 273});
        QCOMPARE(form.frame2Placement.top, 20 - 168.8f - 10);
        QCOMPARE(form.Shape1->placement().width, 130 / 64.0f * 6);  // the frame still follows
    }

    void paletteChoosesAndItsStripIsDragged() {
        Form1 form(dialogs);
        form.show();
        form.Command1_Click();
        form.resize(900, 640);
        const struct {
            int code;
            QSizeF outline;
        } choices[] = {{6, {256, 192}}, {135, {64, 64}}, {3, {192, 256}}};
        for (const auto& choice : choices) {
            QTest::mouseClick(form.Option1.at(choice.code), Qt::LeftButton);
            QCOMPARE(form.SelectedCode, choice.code);
            QCOMPARE(QSizeF(form.Shape2->placement().width, form.Shape2->placement().height),
                     choice.outline);
            QVERIFY(form.Option1.at(choice.code)->isChecked());
        }

        // Any button drags the strip by its background; the pressed point stays under the
        // pointer, so down and back up returns it exactly.
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            const float top = form.Picture5->placement().top;
            press(form.Picture5, {100, 20}, button);
            drag(form.Picture5, {100, 120}, button);
            QCOMPARE(form.Picture5->placement().top, top + 100);
            drag(form.Picture5, {100, -80}, button);
            QCOMPARE(form.Picture5->placement().top, top);
        }
        press(form.Picture5, {100, 20});
        drag(form.Picture5, {100, -5000});
        QCOMPARE(form.Picture5->placement().top, 8 - 5020.0f);
        drag(form.Picture5, {100, 20}, Qt::NoButton);  // hovering moves nothing
        QCOMPARE(form.Picture5->placement().top, 8 - 5020.0f);

        press(form.Option1.at(0), {10, 10});  // a press on an entry drags nothing
        drag(form.Option1.at(0), {10, 300});
        QCOMPARE(form.Picture5->placement().top, 8 - 5020.0f);
    }
};

QTEST_MAIN(WindowTest)
#include "test_window.moc"
