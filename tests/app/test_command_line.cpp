#include "editor_command_line.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Action = EditorLaunch::Action;

// Every row runs in one tree: work/ is the current folder, home/ the home folder.
class CommandLineTest : public QObject {
    Q_OBJECT

    QTemporaryDir root;
    QString at(const QString& relative) const { return QDir(root.path()).filePath(relative); }

  private slots:
    void initTestCase() {
        QVERIFY(root.isValid());
        for (const char* folder : {"work", "home", "moje levely", "blocked/level99.VRK"})
            QVERIFY(QDir(root.path()).mkpath(folder));
        QFile level(at("moje levely/hrad.vrk"));
        QVERIFY(level.open(QIODevice::WriteOnly));
        QFile notAFolder(at("blocked-home/Varnok"));
        QVERIFY(QDir(root.path()).mkpath("blocked-home") && notAFolder.open(QIODevice::WriteOnly));
    }

    void launches_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("home");
        QTest::addColumn<Action>("action");
        QTest::addColumn<QString>("levelFile");  // below the root; for Print and Fail a text part
        QTest::addColumn<int>("exitCode");
        const QString levelPath = at("moje levely/hrad.vrk");
        QTest::newRow("no path") << QStringList{} << "home" << Action::Run << "work/level99.VRK"
                                 << 0;
        QTest::newRow("folder, relative") << QStringList{"../moje levely/"} << "home" << Action::Run
                                          << "moje levely/level99.VRK" << 0;
        QTest::newRow("file of another name")
            << QStringList{levelPath} << "home" << Action::Run << "moje levely/hrad.vrk" << 0;
        QTest::newRow("new level file")
            << QStringList{"novy.VRK"} << "home" << Action::Run << "work/novy.VRK" << 0;
        QTest::newRow("menu") << QStringList{"--varnok-folder"} << "home" << Action::Run
                              << "home/Varnok/level99.VRK" << 0;
        QTest::newRow("menu with a file") << QStringList{"--varnok-folder", levelPath} << "home"
                                          << Action::Run << "moje levely/hrad.vrk" << 0;
        QTest::newRow("a path after --")
            << QStringList{"--", "-x.vrk"} << "home" << Action::Run << "work/-x.vrk" << 0;
        QTest::newRow("missing path")
            << QStringList{"nikde"} << "home" << Action::Fail
            << "Soubor ani složka " + at("work/nikde") + " neexistuje." << 1;
        QTest::newRow("missing folder") << QStringList{"nikde/hrad.vrk"} << "home" << Action::Fail
                                        << "Složka " + at("work/nikde") + " neexistuje." << 1;
        QTest::newRow("level file is a folder")
            << QStringList{"../blocked"} << "home" << Action::Fail
            << at("blocked/level99.VRK") + " není soubor levelu." << 1;
        QTest::newRow("a device") << QStringList{"/dev/null"} << "home" << Action::Fail
                                  << "/dev/null není soubor ani složka." << 1;
        QTest::newRow("menu folder cannot be made")
            << QStringList{"--varnok-folder"} << "blocked-home" << Action::Fail
            << "Složku " + at("blocked-home/Varnok") + " nelze vytvořit." << 1;
        QTest::newRow("unknown option")
            << QStringList{"--nic"} << "home" << Action::Fail << "Neznámá volba --nic." << 2;
        QTest::newRow("two paths")
            << QStringList{"a", "b"} << "home" << Action::Fail << "nejvýš jednu CESTU" << 2;
        QTest::newRow("--version") << QStringList{"--version", "nikde"} << "home" << Action::Print
                                   << "varnok-editor " VARNOK_VERSION "\n"
                                   << 0;
        QTest::newRow("-h") << QStringList{"-h"} << "home" << Action::Print
                            << "Použití: varnok-editor [volby] [CESTA]" << 0;
    }
    void launches() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, home);
        QFETCH(Action, action);
        QFETCH(QString, levelFile);
        QFETCH(int, exitCode);
        const EditorLaunch launch =
            parseEditorCommandLine(QStringList{"varnok-editor"} + arguments, at("work"), at(home));
        QCOMPARE(launch.action, action);
        QCOMPARE(launch.exitCode, exitCode);
        if (action == Action::Run) {
            QCOMPARE(launch.levelFile, at(levelFile));
            QCOMPARE(launch.spriteSheet, QFileInfo(at(levelFile)).dir().filePath("EditPic.jpg"));
            QVERIFY(QFileInfo(launch.levelFile).dir().exists());
        } else {
            QVERIFY2(launch.text.contains(levelFile), qPrintable(launch.text));
            if (action == Action::Fail) QVERIFY(!launch.text.contains('\n'));
        }
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "test_command_line.moc"
