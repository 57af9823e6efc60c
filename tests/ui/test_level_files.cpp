#include "editor_texts.h"
#include "mouse.h"
#include "recent_files.h"
#include "tile_codes.h"

#include <QSignalSpy>
#include <QTest>

namespace {
const QString Title = QStringLiteral("VARNOK LEVEL EDITOR");

QByteArray fileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

// A level file of this size with the hero at (5, 5).
void writeLevel(const QString& path, int side) {
    Level level;
    level.reset(side, side);
    level.setCell(5, 5, HeroCode);
    if (!writeLevelFile(level, path).ok()) qFatal("no level file written");
}

bool magenta(QRgb pixel) {
    return qRed(pixel) > 200 && qGreen(pixel) < 60 && qBlue(pixel) > 200;
}

void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}
}  // namespace

// Ctrl+Shift+O and Ctrl+Shift+S with a recording file dialog; the files remembered in a
// configuration folder of the test's own.
class LevelFilesTest : public QObject {
    Q_OBJECT
    QTemporaryDir config;
    QTemporaryDir others;  // where the other level files lie

    // An editor started on a 25 x 25 level99.VRK, remembering its files.
    void startEditor(Editor& editor, RecentFiles& recent) {
        writeLevel(editor.path(LevelFileName), 25);
        editor.window.setRecentFiles(&recent);
        editor.window.startUp();
        QVERIFY(QTest::qWaitForWindowActive(&editor.window));
    }

  private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path())); }

    void openAnotherFileUndoAndSave() {
        Editor editor;
        RecentFiles recent;
        startEditor(editor, recent);
        QCOMPARE(editor.window.windowTitle(), Title);
        const QString start = editor.path(LevelFileName);
        const QString castle = others.filePath("castle.vrk");
        writeLevel(castle, 30);
        QImage sheet(640, 896, QImage::Format_RGB32);
        sheet.fill(qRgb(255, 0, 255));
        QVERIFY(sheet.save(others.filePath(SpriteSheetFileName), "JPG"));
        QSignalSpy changed(&editor.document, &LevelDocument::levelFileChanged);

        editor.dialogs.fileNames = {castle};
        pressKey(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor.dialogs.shown.last(), "open|" + editor.folder.path() + "|" + start);
        QCOMPARE(editor.level.width(), 30);
        QCOMPARE(editor.document.levelFile(), castle);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.last().first().toString(), castle);
        QCOMPARE(editor.window.windowTitle(), Title + " — castle.vrk");
        QVERIFY(magenta(editor.document.sheet().image().pixel(100, 100)));
        QCOMPARE(RecentFiles().files(), QStringList({castle, start}));
        QVERIFY(QFile::exists(config.filePath("varnok/varnok-editor.conf")));

        // Painting and Ctrl+S write the opened file; Ctrl+O reads it again.
        const QByteArray startBytes = fileBytes(start);
        editor.document.applyTool(8, 8, 25);
        pressKey(Qt::Key_S);
        QCOMPARE(fileBytes(castle), encodeLevelFile(editor.level));
        QCOMPARE(editor.level.cell(8, 8), 25);
        QCOMPARE(fileBytes(start), startBytes);
        editor.document.applyTool(9, 8, 25);
        pressKey(Qt::Key_O);
        QCOMPARE(editor.level.cell(9, 8), 0);
        QCOMPARE(editor.level.cell(8, 8), 25);

        // Undoing the Ctrl+O, then the open: the earlier level with its file and sheet.
        pressKey(Qt::Key_Z);
        QCOMPARE(editor.document.levelFile(), castle);
        pressKey(Qt::Key_Z);
        QCOMPARE(editor.level.width(), 25);
        QCOMPARE(editor.document.levelFile(), start);
        QCOMPARE(editor.window.windowTitle(), Title);
        QVERIFY(!magenta(editor.document.sheet().image().pixel(100, 100)));
        QCOMPARE(changed.last().first().toString(), start);
        QCOMPARE(RecentFiles().files(), QStringList({start, castle}));
        pressKey(Qt::Key_Y);
        QCOMPARE(editor.level.width(), 30);
        QCOMPARE(editor.document.levelFile(), castle);
        QVERIFY(magenta(editor.document.sheet().image().pixel(100, 100)));

        // A file that is gone leaves the list; the dialog is offered the rest.
        QVERIFY(QFile::remove(castle));
        editor.dialogs.fileNames.clear();
        pressKey(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor.dialogs.shown.last(), "open|" + others.path() + "|" + start);
        QCOMPARE(editor.level.width(), 30);  // cancelled
    }

    void aRefusedFileChangesNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");  // none: a folder, or nothing at all
        QTest::addColumn<QString>("message");
        QTest::newRow("folder") << "folder.vrk" << QByteArray() << "nelze otevřít";
        QTest::newRow("binary") << "binary.vrk" << QByteArray("\x89PNG\r\n\x1a\n\0\0\xff", 11)
                                << "není celé číslo";
        QTest::newRow("LF line ends")
            << "unix.vrk" << QByteArray("1\n 34 \n 34 \n") << "konce řádků LF";
        QTest::newRow("missing") << "missing.vrk" << QByteArray() << "nebyl nalezen";
    }
    void aRefusedFileChangesNothing() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        Editor editor;
        RecentFiles recent(config.filePath("refused.conf"));
        startEditor(editor, recent);
        const QString path = others.filePath(name);
        if (name.startsWith("folder")) QVERIFY(QDir(others.path()).mkpath(name));
        if (!bytes.isEmpty()) writeBytes(path, bytes);
        editor.document.applyTool(8, 8, 25);
        const QByteArray before = encodeLevelFile(editor.level);
        const int steps = editor.document.history().count();
        QSignalSpy changed(&editor.document, &LevelDocument::levelFileChanged);

        editor.dialogs.fileNames = {path};
        editor.window.openOtherLevel();
        const QString shown = editor.dialogs.shown.last();
        QVERIFY2(shown.startsWith("error||Soubor " + name) && shown.contains(message),
                 qPrintable(shown));
        QCOMPARE(encodeLevelFile(editor.level), before);
        QCOMPARE(editor.document.levelFile(), editor.path(LevelFileName));
        QCOMPARE(editor.document.history().count(), steps);
        QCOMPARE(editor.window.windowTitle(), Title);
        QCOMPARE(changed.size(), 0);
        QCOMPARE(recent.files(), QStringList{editor.path(LevelFileName)});
    }

    void saveUnderAnotherName() {
        Editor editor;
        RecentFiles recent(config.filePath("saved.conf"));
        startEditor(editor, recent);
        QSignalSpy changed(&editor.document, &LevelDocument::levelFileChanged);
        const auto saveAs = [&](const QString& typed, std::deque<bool> answers = {}) {
            editor.dialogs.fileNames = {typed};
            editor.dialogs.answers = std::move(answers);
            editor.dialogs.shown.clear();
            pressKey(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        };

        // No extension: ".VRK" is added; a new file is written without a question.
        saveAs(others.filePath("cellar"));
        const QString cellar = others.filePath("cellar.VRK");
        QCOMPARE(editor.dialogs.shown,
                 QStringList{"save|" + editor.folder.path() + "|" + editor.path(LevelFileName)});
        QCOMPARE(fileBytes(cellar), encodeLevelFile(editor.level));
        QCOMPARE(editor.document.levelFile(), cellar);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(editor.window.windowTitle(), Title + " — cellar.VRK");
        QCOMPARE(recent.files().first(), cellar);

        // Over an existing file: Save's question; No writes nothing.
        editor.document.applyTool(8, 8, 25);
        saveAs(cellar, {false});
        QCOMPARE(editor.dialogs.shown.last(),
                 "question|" + EditorTexts::SaveTitle + "|" + EditorTexts::SaveQuestion);
        QVERIFY(fileBytes(cellar) != encodeLevelFile(editor.level));
        // A name with its own extension keeps it.
        saveAs(others.filePath("sklep.vrk"));
        QCOMPARE(fileBytes(others.filePath("sklep.vrk")), encodeLevelFile(editor.level));
        QCOMPARE(editor.window.windowTitle(), Title + " — sklep.vrk");

        // Without a hero: Save's warning, nothing written, the file stays.
        editor.document.applyTool(5, 5, 0);
        saveAs(others.filePath("empty.VRK"));
        QCOMPARE(editor.dialogs.shown.last(),
                 "warning|" + EditorTexts::NoHeroTitle + "|" + EditorTexts::NoHero);
        QVERIFY(!QFile::exists(others.filePath("empty.VRK")));
        QCOMPARE(editor.document.levelFile(), others.filePath("sklep.vrk"));

        // Back to level99.VRK of the start folder: the title is the plain one again.
        editor.document.applyTool(6, 6, HeroCode);
        saveAs(editor.path(LevelFileName), {true});
        QCOMPARE(fileBytes(editor.path(LevelFileName)), encodeLevelFile(editor.level));
        QCOMPARE(editor.window.windowTitle(), Title);
        QCOMPARE(changed.size(), 3);
    }

    void remembersTheLastTen() {
        RecentFiles recent(config.filePath("ten.conf"));
        for (int i = 0; i < 12; ++i) {
            writeBytes(others.filePath(QString("level%1.VRK").arg(i)), "1\r\n");
            recent.add(others.filePath(QString("level%1.VRK").arg(i)));
        }
        recent.add(others.filePath("level5.VRK"));
        const QStringList files = recent.files();
        QCOMPARE(files.size(), 10);
        QCOMPARE(files.first(), others.filePath("level5.VRK"));
        QCOMPARE(files.at(1), others.filePath("level11.VRK"));
        QVERIFY(!files.contains(others.filePath("level1.VRK")));
        QCOMPARE(files.count(others.filePath("level5.VRK")), 1);
    }
};

QTEST_MAIN(LevelFilesTest)
#include "test_level_files.moc"
