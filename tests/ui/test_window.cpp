#include "editor_texts.h"
#include "level_menu.h"
#include "message_box_dialogs.h"
#include "minimap_view.h"
#include "mouse.h"
#include "outline_shape.h"
#include "tile_codes.h"
#include "tool_strip.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace {
QRect hundredths(const Placement& p) {
    return Placement{p.left * 100, p.top * 100, p.width * 100, p.height * 100}.rounded();
}
}  // namespace

// Placements agree when they match to a hundredth of a pixel.
#define COMPARE_NEAR(actual, ...) QCOMPARE(hundredths(actual), hundredths(Placement{__VA_ARGS__}))

class WindowTest : public QObject {
    Q_OBJECT

  private slots:
    void layoutFollowsTheWindowAndTheMinimap() {
        Editor editor;
        QCOMPARE(editor.window.size(), QSize(896, 641));
        auto* menu = editor.part<LevelMenu>("levelMenu");
        auto* palette = editor.part<ToolStrip>("toolStripViewport");
        editor.window.show();
        editor.window.newLevel();  // a 20 x 20 level: minimap 120 x 120 at (10, 17)
        editor.window.resize(900, 640);
        COMPARE_NEAR(editor.part<MinimapView>("minimapSurface")->placement(), 10, 17, 120, 120);
        COMPARE_NEAR(menu->placement(), 10, 461.2f, 120, 168.8f);
        COMPARE_NEAR(palette->placement(), 10, 147, 120, 304.2f);
        COMPARE_NEAR(palette->stripPlacement(), 0, 8, 120, 1888);
        COMPARE_NEAR(editor.viewport->placement(), 140, 17, 750, 613);

        editor.newLevel("40", "40");  // a 240-pixel column: the menu and the view follow below
        QCOMPARE(palette->placement().width, 240.0f);

        // Too small: the moves that would get a negative size are skipped, the rest run.
        const Placement paletteBefore = palette->placement();
        editor.window.resize(400, 300);
        QCOMPARE(palette->placement(), paletteBefore);
        COMPARE_NEAR(menu->placement(), 10, 121.2f, 240, 168.8f);
        COMPARE_NEAR(editor.viewport->placement(), 260, 17, 130, 273);
        editor.window.resize(200, 20);
        COMPARE_NEAR(editor.viewport->placement(), 260, 17, 130, 273);
        QCOMPARE(menu->placement().top, 20 - 168.8f - 10);
        QCOMPARE(editor.part<OutlineShape>("minimapViewFrame")->placement().width,
                 130 / 64.0f * 6);  // the frame still follows
    }

    // Whatever font stands in for the one asked for, the captions are whole.
    void captionsFitTheirPlacesInTheirFonts() {
        Editor editor;
        QList<QWidget*> captioned{editor.part("mouseHintLabel"), editor.part("loadingLabel")};
        for (QToolButton* entry : editor.window.findChildren<QToolButton*>()) captioned << entry;
        for (QLineEdit* field : editor.window.findChildren<QLineEdit*>()) {
            field->setText("1000");  // the largest side, whole in its field
            captioned << field;
        }
        for (QWidget* widget : captioned) {
            widget->grab();  // captions are fitted when first drawn
            const QString text = widget->property("text").toString();
            const int room = widget->inherits("QLineEdit") ? widget->contentsRect().width() - 4
                                                           : widget->width();
            QVERIFY2(widget->fontMetrics().horizontalAdvance(text) <= room, qPrintable(text));
        }
        // MS Sans Serif where installed, else Liberation Sans (its widths): captions bold 7.8
        // points, the loading label bold 24, the rest 8. Without either, any may stand in.
        const QStringList families = QFontDatabase::families();
        const QString family = families.contains("MS Sans Serif", Qt::CaseInsensitive)
                                   ? "MS Sans Serif"
                                   : "Liberation Sans";
        if (!families.contains(family, Qt::CaseInsensitive)) return;
        for (const auto& [name, points, bold] :
             {std::tuple("toolButton_1", 7.8, true), std::tuple("helpButton", 7.8, true),
              std::tuple("loadingLabel", 24.0, true), std::tuple("widthField", 8.0, false)}) {
            const QFont font = editor.part(name)->font();
            QCOMPARE(
                std::tuple(QString(name), QFontInfo(font).family(), font.pointSizeF(), font.bold()),
                std::tuple(QString(name), family, points, bold));
        }
    }

    // Alt+A and Alt+N answer a question; were they ignored, Esc (No) and Return (Yes) would.
    void questionsAnswerToAltAndHelpLinesStayWhole() {
        MessageBoxDialogs dialogs;
        for (const bool yes : {true, false}) {
            QObject round;  // its timers go with it: a late one must not answer the next box
            QTimer::singleShot(50, &round, [yes] {
                if (QWidget* box = QApplication::activeModalWidget())
                    QTest::keyClick(box, yes ? Qt::Key_A : Qt::Key_N, Qt::AltModifier);
            });
            QTimer::singleShot(1000, &round, [yes] {
                if (QWidget* box = QApplication::activeModalWidget())
                    QTest::keyClick(box, yes ? Qt::Key_Escape : Qt::Key_Return);
            });
            QCOMPARE(dialogs.question("Uložit?", "Otázka"), yes);
        }
        // The help box is wide enough for each of its lines: none wraps.
        int wrapped = -1;
        QTimer::singleShot(50, [&] {
            QWidget* box = QApplication::activeModalWidget();
            if (auto* label = box ? box->findChild<QLabel*>("qt_msgbox_label") : nullptr) {
                const QFontMetrics metrics(label->font());
                wrapped = 0;
                for (const QString& line : EditorTexts::helpText().split('\n'))
                    wrapped += metrics.horizontalAdvance(line) > label->contentsRect().width();
            }
            if (box) QTest::keyClick(box, Qt::Key_Return);
        });
        dialogs.information(EditorTexts::helpText(), EditorTexts::HelpTitle);
        QCOMPARE(wrapped, 0);
    }

    // The outline is whole at every screen scale: each edge shows along its middle.
    void outlinesKeepEveryEdgeAtAnyScale() {
        QWidget parent;
        OutlineShape outline(&parent, QColor(0, 0, 255), "outline");
        outline.resize(51, 51);
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            QImage image(QSize(51, 51) * ratio, QImage::Format_ARGB32);
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::transparent);
            outline.render(&image);
            const int last = image.width() - 1, middle = image.width() / 2;
            for (const QPoint edge :
                 {QPoint(middle, 0), QPoint(middle, last), QPoint(0, middle), QPoint(last, middle)})
                QVERIFY2(image.pixel(edge) == qRgb(0, 0, 255),
                         qPrintable(QString("%1 at %2").arg(ratio).arg(edge.y())));
        }
    }

    // A click on an entry selects its tool, sizes the outline and outlines the entry dark blue.
    // Any button drags the strip by its background, the pressed point staying under the pointer.
    void paletteChoosesAToolAndIsDragged() {
        Editor editor;
        editor.window.show();
        editor.window.newLevel();
        auto* wall = editor.part<QToolButton>("toolButton_1");
        for (auto [code, outline] :
             {std::pair{6, QSize(256, 192)}, {HeroCode, QSize(64, 64)}, {3, QSize(192, 256)}}) {
            auto* button = editor.part<QToolButton>(qPrintable(QString("toolButton_%1").arg(code)));
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(editor.window.selectedTool(), code);
            QCOMPARE(editor.outline->size(), outline);
            QVERIFY(button->isChecked() && !wall->isChecked());
            QCOMPARE(button->grab().toImage().pixelColor(2, 30), QColor(0, 0, 64));
            QVERIFY(wall->grab().toImage().pixelColor(2, 30) != QColor(0, 0, 64));
        }
        auto* palette = editor.part<ToolStrip>("toolStripViewport");
        auto* strip = editor.part("toolStrip");
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            const float top = palette->stripPlacement().top;
            press(strip, {100, 20}, button);
            for (auto [to, moved] : {std::pair{120, 100.0f}, {-80, 0.0f}, {-5000, -5020.0f}}) {
                drag(strip, {100, qreal(to)}, button);  // in the strip's own, moved, points
                QCOMPARE(palette->stripPlacement().top, top + moved);
            }
            drag(strip, {100, 200}, Qt::NoButton);         // hovering moves nothing
            press(editor.part("toolButton_0"), {10, 10});  // a press on an entry drags nothing
            drag(editor.part("toolButton_0"), {10, 300});
            QCOMPARE(palette->stripPlacement().top, top - 5020);
        }
    }
};

QTEST_MAIN(WindowTest)
#include "test_window.moc"
