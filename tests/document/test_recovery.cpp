#include "file_bytes.h"
#include "level_document.h"
#include "recovery_keeper.h"
#include "tile_codes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

static constexpr qint64 GoneProcess = 99999999;  // above any pid the kernel hands out

class RecoveryTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    const QString level = dir.filePath("level99.VRK");
    const QString state = dir.filePath("state");
    const QString copy = state + '/' + RecoveryStore::keyFor(level) + ".VRK";
    LevelDocument document{level, dir.filePath("EditPic.jpg")};

    std::unique_ptr<RecoveryKeeper> keeperOf(const QString& path, const QString& under) {
        auto keeper = std::make_unique<RecoveryKeeper>(document, under);
        keeper->setLevelFile(path);
        return keeper;
    }

  private slots:
    void copiesSoonAndRemovesOnSave() {
        document.newLevel(30, 30);
        auto keeper = keeperOf(level, state);
        keeper->startKeeping();
        // Painting without a pause is copied all the same, within two seconds of its start.
        QElapsedTimer painting;
        painting.start();
        document.beginStroke();
        for (int x = 0; !QFile::exists(copy) && painting.elapsed() < 3000; ++x) {
            document.applyTool(2 + x % 25, 5, 25);
            QTest::qWait(50);
        }
        QVERIFY2(painting.elapsed() < 2000, qPrintable(QString::number(painting.elapsed())));
        document.applyTool(7, 13, HeroCode);
        document.endStroke();
        QTRY_COMPARE(bytesOf(copy), encodeLevelFile(document.level()));
        keeper->waitForWrites();
        const auto info = RecoveryStore::readInfo(state, RecoveryStore::keyFor(level));
        QVERIFY(info && info->heroPlaced && info->width == 30 && info->levelPath == level);
        QCOMPARE(info->processId, QCoreApplication::applicationPid());
        QVERIFY(!QFile::exists(level));  // the level file is Save's alone

        document.undo();
        QTRY_COMPARE(bytesOf(copy), encodeLevelFile(document.level()));
        keeper->levelSaved();
        keeper->waitForWrites();
        QVERIFY(!QFile::exists(copy));
    }

    void writerUnderFaults() {
        document.newLevel(20, 20);
        // A state folder that refuses writes (a read-only mount to root): told once.
        const QString readOnly = dir.filePath("read-only");
        QVERIFY(QDir().mkpath(readOnly));
        if (geteuid() ? chmod(QFile::encodeName(readOnly), 0555) == 0
                      : mount("tmpfs", QFile::encodeName(readOnly), "tmpfs", MS_RDONLY, "") == 0) {
            const auto keeper = keeperOf(level, readOnly + "/recovery");
            keeper->startKeeping();
            QSignalSpy failures(keeper.get(), &RecoveryKeeper::copyFailed);
            for (int x : {5, 9}) {
                document.applyTool(x, 5, 25);
                keeper->copyNow();
                keeper->waitForWrites();
                QTest::qWait(50);
            }
            QCOMPARE(failures.count(), 1);
            QVERIFY(failures.first().first().toString().contains("jen pro čtení") ||
                    failures.first().first().toString().contains("přístup odepřen"));
            if (geteuid() == 0) umount(QFile::encodeName(readOnly));
        }
        Level large;
        large.reset(300, 300);
        large.setCell(4, 4, HeroCode);
        const RecoveryStore::Info info{
            level, QDateTime::currentDateTime(), 300, 300, true, GoneProcess, 0};
        // A full disk (a small tmpfs, which only root may mount) leaves nothing half written.
        const QString full = dir.filePath("full");
        QVERIFY(QDir().mkpath(full));
        if (geteuid() == 0 &&
            mount("tmpfs", QFile::encodeName(full), "tmpfs", 0, "size=32k") == 0) {
            QCOMPARE(RecoveryStore::write(full, "copy", large, info), "na disku není místo.");
            QCOMPARE(QDir(full).entryList(QDir::Files | QDir::Hidden), QStringList());
            umount(QFile::encodeName(full));
        }

        // A copy cut off in the middle is moved aside; a whole one is read back exactly.
        const QString key = RecoveryStore::keyFor(level);
        const auto keeper = keeperOf(level, state);
        Level read;
        QString reason, movedTo;
        QCOMPARE(RecoveryStore::write(state, key, large, info), QString());
        QVERIFY(QFile::resize(copy, QFileInfo(copy).size() / 2));
        QVERIFY(!keeper->read(*keeper->leftBehind(), read, reason, movedTo));
        QCOMPARE(reason, "kopie je neúplná.");
        QVERIFY(movedTo.startsWith(state + "/damaged/") && QFile::exists(movedTo));
        QVERIFY(!keeper->leftBehind());
        QCOMPARE(RecoveryStore::write(state, key, large, info), QString());
        QVERIFY(keeper->read(*keeper->leftBehind(), read, reason, movedTo));
        QCOMPARE(encodeLevelFile(read), encodeLevelFile(large));
        QCOMPARE(read.hero(), QPoint(4, 4));
        keeper->discard(*keeper->leftBehind());
        QVERIFY(!keeper->leftBehind());
        // Kept a week from being set aside, removed at a later start.
        const QStringList discarded = QDir(state + "/discarded").entryList(QDir::Files);
        QCOMPARE(discarded.size(), 2);
        const time_t weekAgo = time_t(QDateTime::currentDateTime().addDays(-8).toSecsSinceEpoch());
        const utimbuf aged{weekAgo, weekAgo};
        QCOMPARE(utime(QFile::encodeName(state + "/discarded/" + discarded.first()), &aged), 0);
        RecoveryKeeper laterStart(document, state);
        QCOMPARE(QDir(state + "/discarded").entryList(QDir::Files), discarded.mid(1));
    }

    // An editor may run for days: its lock is never too old to hold; another file has its own.
    void locksEachLevelFileAndFollowsSaveAs() {
        const auto otherEditorOf = [&](const QString& path) {
            return keeperOf(path, state)->otherEditor();
        };
        const auto first = keeperOf(level, state);
        QCOMPARE(first->otherEditor(), qint64(0));  // nobody else: its own lock is taken
        QCOMPARE(otherEditorOf(level), QCoreApplication::applicationPid());
        QCOMPARE(otherEditorOf(dir.filePath("other.vrk")), qint64(0));
        QVERIFY(document.saveAs(dir.filePath("other.vrk")).ok());  // Save As moves the lock
        QCOMPARE(otherEditorOf(level), qint64(0));
        QCOMPARE(otherEditorOf(dir.filePath("other.vrk")), QCoreApplication::applicationPid());
    }
};

QTEST_GUILESS_MAIN(RecoveryTest)
#include "test_recovery.moc"
