#include "editor_command_line.h"
#include "file_names.h"
#include "recent_files.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using enum EditorLaunch::Action;

// Every case runs in one tree: work/ is the current folder, home/ the home folder.
class CommandLineTest : public QObject {
    Q_OBJECT

    QTemporaryDir root;
    QString at(const QString& relative) const { return QDir(root.path()).filePath(relative); }

  private slots:
    void initTestCase() {
        for (const char* folder : {"work", "home", "moje levely", "blocked/level99.VRK", "archiv"})
            QVERIFY(QDir(root.path()).mkpath(folder));
        QVERIFY(QFile(at("moje levely/hrad.vrk")).open(QIODevice::WriteOnly));
        // Read-only, in a read-only folder: it opens all the same, and only Save refuses it.
        QVERIFY(QFile(at("archiv/level99.VRK")).open(QIODevice::WriteOnly));
        QVERIFY(QFile::setPermissions(at("archiv/level99.VRK"), QFile::ReadOwner));
        QVERIFY(QFile::setPermissions(at("archiv"), QFile::ReadOwner | QFile::ExeOwner));
    }

    // For Print and Fail, `text` is a part of what is told; for Run, the level file's path.
    void launches() {
        // Help, version and every complaint are Czech, with none of Qt's English lines.
        static const QRegularExpression english(
            "\\b(Usage|Options|Arguments|Displays|Unknown|Missing|Unexpected|option|value)\\b");
        const auto row = [&](const char* name, const QStringList& arguments,
                             EditorLaunch::Action action, const QString& text, int exitCode = 0,
                             const char* home = "home") {
            const EditorLaunch launch = parseEditorCommandLine(
                QStringList{"varnok-editor"} + arguments, at("work"), *home ? at(home) : QString());
            QCOMPARE(std::tuple(name, launch.action, launch.exitCode),
                     std::tuple(name, action, exitCode));
            if (action == Run) {
                QCOMPARE(
                    std::tuple(name, launch.levelFile, launch.spriteSheet),
                    std::tuple(name, at(text), QFileInfo(at(text)).dir().filePath("EditPic.jpg")));
                QVERIFY2(QFileInfo(launch.levelFile).dir().exists(), name);
            } else {
                QVERIFY2(launch.text.contains(text) && !english.match(launch.text).hasMatch() &&
                             (action != Fail || !launch.text.contains('\n')),
                         qPrintable(name + QString(": ") + launch.text));
            }
        };
        const QString levelPath = at("moje levely/hrad.vrk");
        row("no path", {}, Run, "work/level99.VRK");
        row("folder, relative", {"../moje levely/"}, Run, "moje levely/level99.VRK");
        row("file of another name", {levelPath}, Run, "moje levely/hrad.vrk");
        row("new level file", {"novy.VRK"}, Run, "work/novy.VRK");
        row("menu", {"--varnok-folder"}, Run, "home/Varnok/level99.VRK");
        row("read-only level", {"../archiv"}, Run, "archiv/level99.VRK");
        row("a name that is not UTF-8", {fileNameFromBytes("../moje levely/\xe8\xe1st.VRK")}, Run,
            fileNameFromBytes("moje levely/\xe8\xe1st.VRK"));
        row("menu without a home", {"--varnok-folder"}, Fail, "domovská složka", 1, "");
        row("menu with a file", {"--varnok-folder", levelPath}, Run, "moje levely/hrad.vrk");
        row("a path after --", {"--", "-x.vrk"}, Run, "work/-x.vrk");
        row("missing path", {"nikde"}, Fail,
            "Soubor ani složka " + at("work/nikde") + " neexistuje.", 1);
        row("missing folder", {"nikde/hrad.vrk"}, Fail, "Složka " + at("work/nikde"), 1);
        row("file is a folder", {"../blocked"}, Fail, "/blocked/level99.VRK není soubor levelu.",
            1);
        row("a device", {"/dev/null"}, Fail, "/dev/null není soubor ani složka.", 1);
        row("menu folder cannot be made", {"--varnok-folder"}, Fail,  // home is a file
            "/hrad.vrk/Varnok nelze vytvořit.", 1, "moje levely/hrad.vrk");
        row("unknown option", {"--nic"}, Fail, "Neznámá volba --nic.", 2);
        row("option with a value", {"--help=ano"}, Fail, "nebere hodnotu", 2);
        row("two paths", {"a", "b"}, Fail, "nejvýš jednu CESTU", 2);
        row("--version", {"--version", "nikde"}, Print, "varnok-editor " VARNOK_VERSION "\n");
        row("-h", {"-h"}, Print, "Použití: varnok-editor [volby] [CESTA]");
        row("--help", {"--help"}, Print, "Ctrl+0, Ctrl+9      plná velikost, celý level v okně");
    }

    // Without HOME the user database names the home folder, never the file system's root.
    void homeFolderAndRecentFiles() {
        const QByteArray home = qgetenv("HOME");
        qunsetenv("HOME");
        const QString found = userHomeFolder();
        qputenv("HOME", home);
        QVERIFY2(!found.isEmpty() && found != "/" && QDir(found).exists(), qPrintable(found));
        QCOMPARE(userHomeFolder(), QString::fromLocal8Bit(home));

        // --recent: the files remembered under XDG_CONFIG_HOME, one a line, the latest first.
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(at("config")));
        for (const char* file : {"moje levely/hrad.vrk", "work/gone.VRK", "archiv/level99.VRK"})
            RecentFiles().add(at(file));
        QCOMPARE(parseEditorCommandLine({"varnok-editor", "--recent"}, at("work"), {}).text,
                 at("archiv/level99.VRK") + "\n" + at("moje levely/hrad.vrk") + "\n");
    }

    void cleanupTestCase() {  // so that the folder can be removed
        QFile::setPermissions(at("archiv"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "test_command_line.moc"
