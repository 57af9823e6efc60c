#include "level_bytes.h"

#include <QDir>
#include <QTest>
#include <QThread>

#include <csignal>
#include <optional>

namespace {

constexpr int Crate = 25;

const QString Recover = QStringLiteral("Obnovit level");
const QString OpenElsewhere = QStringLiteral("Level je otevřený");

}  // namespace

// The editor killed and started again on the same folder, and two editors on one level file,
// in the real program under Xvfb.
class RecoveryEndToEndTest : public QObject {
    Q_OBJECT
    std::optional<X11Session> x;
    std::optional<QTemporaryDir> folder;
    std::optional<QTemporaryDir> state;

    QString level() const { return folder->filePath("level99.VRK"); }
    QDir recovery() const { return QDir(state->filePath("varnok/recovery")); }
    QStringList copies(const QString& under = {}) const {
        return QDir(recovery().filePath(under)).entryList({"*.VRK"}, QDir::Files);
    }

    bool startEditor() {
        return x->startEditor(VARNOK_EDITOR, folder->path()) && x->closeBox("Nápověda");
    }
    // Paints a crate at (5, 5), waits until the copy has surely been written, kills the editor.
    void paintAndKill() {
        x->resizeEditor(896, 1150);
        x->clickInWindow({entry(4), cell(5, 5)});
        QThread::msleep(3000);
        QCOMPARE(::kill(pid_t(x->editorId()), SIGKILL), 0);
        QCOMPARE(x->editorExitCode(), -1);
    }
    // Saves the level on screen; its bytes.
    QByteArray save() {
        x->resizeEditor(896, 1150);
        const QByteArray before = bytesOf(level());
        x->clickInWindow({saveButton});
        return x->closeBox("Uložit přes starý") ? waitForFile(level(), before) : QByteArray();
    }

  private slots:
    void init() {
        x.emplace();
        folder.emplace();
        state.emplace();
        x->setEditorVariable("XDG_STATE_HOME", state->path());
        QFile::copy(VARNOK_SHEET, folder->filePath("EditPic.jpg"));
        QVERIFY(writeFile(level(), levelFile(heroOnly)));
    }

    void aKilledEditorsWorkComesBack() {
        QVERIFY(startEditor());
        paintAndKill();
        QCOMPARE(copies().size(), 1);
        QCOMPARE(bytesOf(level()), levelFile(heroOnly));  // the level file is Save's alone

        // No: the file's level stays, the copy goes to discarded/.
        QVERIFY(x->startEditor(VARNOK_EDITOR, folder->path()));
        QVERIFY(!x->boxShown(Recover));  // the help box comes first
        QVERIFY(x->closeBox("Nápověda"));
        QVERIFY(x->messageText(Recover).startsWith(
            "Editor nebyl řádně ukončen. Obnovit neuložené změny levelu level99.VRK z "));
        x->key("Escape");
        QVERIFY(X11Session::waitUntil(5000, [&] { return !x->boxShown(Recover); }));
        QCOMPARE(copies("discarded"), QStringList{copies("discarded").value(0)});
        QVERIFY(copies().isEmpty());
        QCOMPARE(savedCell(save(), 5, 5), 0);

        // Yes: the painted level, exactly as copied, as one step that Ctrl+Z takes back.
        paintAndKill();
        const QByteArray painted = bytesOf(recovery().filePath(copies().value(0)));
        QCOMPARE(savedCell(painted, 5, 5), Crate);
        QVERIFY(startEditor());
        QVERIFY(x->closeBox(Recover));
        QCOMPARE(save(), painted);
        x->clickInWindow({QPoint(100, 8)});  // the mouse hint: the window takes the keys
        x->key("ctrl+z");
        QCOMPARE(savedCell(save(), 5, 5), 0);

        // Closed normally, the editor leaves no copy and asks nothing at the next start.
        x->clickInWindow({entry(4), cell(6, 6)});
        QVERIFY(X11Session::waitUntil(3000, [&] { return !copies().isEmpty(); }));
        QVERIFY(x->closeEditorWindow());
        QCOMPARE(x->editorExitCode(), 0);
        QVERIFY(copies().isEmpty());
        QVERIFY(startEditor());
        QThread::msleep(1500);
        QVERIFY(!x->boxShown(Recover));
        QVERIFY(x->editorRunning());
    }

    void oneEditorPerLevelFile() {
        QVERIFY(startEditor());
        const qint64 first = x->editorId();

        // A second editor on the same file asks after its help box; No ends it.
        QProcess second;
        QVERIFY(x->launchAnotherEditor(second, VARNOK_EDITOR, folder->path()));
        QVERIFY(x->closeBox("Nápověda"));
        QCOMPARE(x->messageText(OpenElsewhere),
                 QStringLiteral("Level level99.VRK už je otevřený v jiném okně editoru (proces "
                                "%1). Otevřít ho přesto?")
                     .arg(first));
        x->key("Escape");
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitCode(), 0);
        QVERIFY(x->editorRunning());

        // The first one killed, its lock is taken over without a word.
        QCOMPARE(::kill(pid_t(first), SIGKILL), 0);
        QCOMPARE(x->editorExitCode(), -1);
        QVERIFY(startEditor());
        QThread::msleep(1500);
        QVERIFY(!x->boxShown(OpenElsewhere));
        QVERIFY(x->editorRunning());
    }
};

QTEST_GUILESS_MAIN(RecoveryEndToEndTest)
#include "test_recovery_end_to_end.moc"
