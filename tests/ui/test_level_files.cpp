#include "editor_texts.h"
#include "file_bytes.h"
#include "mouse.h"
#include "recent_files.h"
#include "tile_codes.h"

#include <QTest>

namespace {
const QString Title = QStringLiteral("VARNOK LEVEL EDITOR");
}  // namespace

// Ctrl+Shift+O and Ctrl+Shift+S with a recording file dialog, remembering in a folder of its own.
class LevelFilesTest : public QObject {
    Q_OBJECT
    QTemporaryDir config;
    QTemporaryDir others;  // where the other level files lie

    // Started on a 25 x 25 level99.VRK, remembering its files.
    void startEditor(Editor& editor, RecentFiles& recent) {
        writeLevel(editor.path(LevelFileName), {25, 25}, {5, 5}, HeroCode);
        editor.window.setRecentFiles(&recent);
        editor.window.startUp();
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

  private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path())); }

    // The opened file's sheet is used; undo and redo take file, sheet and files remembered along.
    void openedFileGoesWithItsLevel() {
        Editor editor;
        RecentFiles recent;
        startEditor(editor, recent);
        const QString start = editor.path(LevelFileName);
        const QString castle = others.filePath("castle.vrk");
        writeLevel(castle, {30, 30}, {5, 5}, HeroCode);
        QImage sheet(320, 448, QImage::Format_RGB32);  // cells of 32 pixels, not 64
        sheet.fill(Qt::magenta);
        QVERIFY(sheet.save(others.filePath(SpriteSheetFileName), "JPG"));

        // The level's width, its file, the window's title, the sheet's cell size.
        const auto shown = [&] {
            return std::tuple(editor.level.width(), editor.document.levelFile(),
                              editor.window.windowTitle(), editor.document.sheet().cellSize());
        };
        editor.dialogs.fileNames = {castle};
        key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor.dialogs.shown.last(), "open|" + editor.folder.path() + "|" + start);
        QCOMPARE(shown(), std::tuple(30, castle, Title + " — castle.vrk", QSize(32, 32)));
        QCOMPARE(recent.files(), QStringList({castle, start}));
        key(Qt::Key_Z);
        QCOMPARE(shown(), std::tuple(25, start, Title, QSize(64, 64)));
        QCOMPARE(recent.files(), QStringList({start, castle}));
        key(Qt::Key_Y);
        QCOMPARE(shown(), std::tuple(30, castle, Title + " — castle.vrk", QSize(32, 32)));

        QVERIFY(QFile::remove(castle));
        key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);  // cancelled
        QCOMPARE(editor.dialogs.shown.last(), "open|" + others.path() + "|" + start);
    }

    // Opened, a folder or a file that is not there is told and changes nothing. Saved under
    // another name: the question only over an existing file, the hero check, ".VRK" added.
    void refusedOpensAndSavesUnderAnotherName() {
        Editor editor;
        RecentFiles recent(config.filePath("recent.conf"));
        startEditor(editor, recent);
        QVERIFY(QDir(others.path()).mkpath("folder.vrk"));
        editor.document.applyTool(8, 8, 25);
        const QByteArray before = encodeLevelFile(editor.level);
        for (const auto& [name, message] :
             {std::pair("folder.vrk", "nelze otevřít"), {"missing.vrk", "nebyl nalezen"}}) {
            editor.dialogs.fileNames = {others.filePath(name)};
            editor.window.openOtherLevel();
            const QString shown = editor.dialogs.shown.last();
            QVERIFY2(shown.startsWith(QString("error||Soubor ") + name) &&
                         shown.contains(QString::fromUtf8(message)),
                     qPrintable(shown));
            QCOMPARE(encodeLevelFile(editor.level), before);
            QCOMPARE(editor.document.levelFile(), editor.path(LevelFileName));
            QCOMPARE(editor.document.history().count(), 0);
            QCOMPARE(editor.window.windowTitle(), Title);
            QCOMPARE(recent.files(), QStringList{editor.path(LevelFileName)});
        }

        const auto saveAs = [&](const QString& typed, std::deque<bool> answers = {}) {
            editor.dialogs.fileNames = {typed};
            editor.dialogs.answers = std::move(answers);
            editor.window.saveLevelAs();
            return editor.dialogs.shown.last();
        };
        const QString cellar = others.filePath("cellar.VRK");
        QCOMPARE(saveAs(others.filePath("cellar")),
                 "save|" + editor.folder.path() + "|" + editor.path(LevelFileName));

        editor.document.applyTool(9, 9, 25);
        QCOMPARE(saveAs(cellar, {false}),
                 "question|" + EditorTexts::SaveTitle + "|" + EditorTexts::SaveQuestion);
        QVERIFY(bytesOf(cellar) != encodeLevelFile(editor.level));
        editor.document.applyTool(5, 5, 0);
        QCOMPARE(saveAs(others.filePath("sklep.vrk")),
                 "warning|" + EditorTexts::NoHeroTitle + "|" + EditorTexts::NoHero);
        QVERIFY(!QFile::exists(others.filePath("sklep.vrk")));

        editor.document.applyTool(6, 6, HeroCode);
        saveAs(editor.path(LevelFileName), {true});
        QCOMPARE(bytesOf(editor.path(LevelFileName)), encodeLevelFile(editor.level));
        QCOMPARE(editor.window.windowTitle(), Title);
        QCOMPARE(recent.files(), QStringList({editor.path(LevelFileName), cellar}));
    }
};

QTEST_MAIN(LevelFilesTest)
#include "test_level_files.moc"
