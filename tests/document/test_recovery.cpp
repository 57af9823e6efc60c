#include "level_document.h"
#include "recovery_keeper.h"
#include "recovery_store.h"
#include "tile_codes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr qint64 GoneProcess = 99999999;  // above any pid the kernel hands out

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A folder that refuses writes: read-only to an ordinary user, a read-only mount to root.
bool makeReadOnly(const QString& folder) {
    if (geteuid() != 0) return chmod(QFile::encodeName(folder), 0555) == 0;
    return mount("tmpfs", QFile::encodeName(folder), "tmpfs", MS_RDONLY, "size=64k") == 0;
}
}  // namespace

class RecoveryTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString levelPath() const { return dir.filePath("level99.VRK"); }
    QString state() const { return dir.filePath("state/varnok/recovery"); }
    QString copyPath() const {
        return QDir(state()).filePath(RecoveryStore::keyFor(levelPath()) + ".VRK");
    }

  private slots:
    void copiesBurstsSoonAndRemovesThemOnSaveAndClose() {
        LevelDocument document(levelPath(), dir.filePath("EditPic.jpg"));
        QVERIFY(document.loadSpriteSheet());
        document.newLevel(30, 30);
        auto keeper = std::make_unique<RecoveryKeeper>(document, state());
        keeper->setLevelFile(levelPath());
        keeper->startKeeping();
        QTest::qWait(RecoveryKeeper::RestMs + 200);
        QVERIFY(!QFile::exists(copyPath()));  // an unchanged level needs no copy

        // Painting without a pause is copied all the same, within two seconds of its start.
        QElapsedTimer painting;
        painting.start();
        document.beginStroke();
        for (int x = 3; !QFile::exists(copyPath()) && painting.elapsed() < 3000; x = x % 25 + 1) {
            document.applyTool(x + 2, 5, 25);
            QTest::qWait(50);
        }
        QVERIFY2(painting.elapsed() < 2000, qPrintable(QString::number(painting.elapsed())));
        document.applyTool(7, 13, HeroCode);
        document.endStroke();
        QTRY_COMPARE(bytesOf(copyPath()), encodeLevelFile(document.level()));
        keeper->waitForWrites();
        const auto info = RecoveryStore::readInfo(state(), RecoveryStore::keyFor(levelPath()));
        QVERIFY(info);
        QCOMPARE(info->levelPath, levelPath());
        QCOMPARE(info->processId, QCoreApplication::applicationPid());
        QCOMPARE(info->width, 30);
        QVERIFY(info->heroPlaced);
        QVERIFY(!QFile::exists(levelPath()));  // the level file is Save's alone

        // An undo is a change like any other; Save removes the copy.
        document.undo();
        QTRY_COMPARE(bytesOf(copyPath()), encodeLevelFile(document.level()));
        keeper->levelSaved();
        keeper->waitForWrites();
        QVERIFY(!QFile::exists(copyPath()));

        // A copy taken after the Save goes with the window.
        document.floodFill(QPoint(10, 10), 26);
        QTRY_VERIFY(QFile::exists(copyPath()));
        keeper.reset();
        QCOMPARE(QDir(state()).entryList(QDir::Files), QStringList());
    }

    void writerUnderFaults() {
        Level level;
        level.reset(300, 300);
        level.setCell(4, 4, HeroCode);
        const RecoveryStore::Info info{
            levelPath(), QDateTime::currentDateTime(), 300, 300, true, GoneProcess, 0};

        // A read-only state folder: told once, with its reason; editing goes on.
        const QString readOnly = dir.filePath("read-only");
        QVERIFY(QDir().mkpath(readOnly));
        if (makeReadOnly(readOnly)) {
            const QString reason = RecoveryStore::write(readOnly, "copy", level, info);
            QVERIFY2(reason == "přístup odepřen." || reason == "systém souborů je jen pro čtení.",
                     qPrintable(reason));
            LevelDocument document(levelPath(), dir.filePath("EditPic.jpg"));
            document.newLevel(20, 20);
            RecoveryKeeper keeper(document, readOnly + "/varnok/recovery");
            keeper.setLevelFile(levelPath());
            keeper.startKeeping();
            QSignalSpy failures(&keeper, &RecoveryKeeper::copyFailed);
            for (int x : {5, 9}) {
                document.applyTool(x, 5, 25);
                keeper.copyNow();
                keeper.waitForWrites();
                QTest::qWait(50);
            }
            QCOMPARE(failures.count(), 1);
            QCOMPARE(document.level().cell(9, 5), 25);
            QVERIFY(!keeper.otherEditor());
            if (geteuid() == 0) umount(QFile::encodeName(readOnly));
        }

        // A full disk (a small tmpfs, which only root may mount) leaves nothing behind.
        const QString full = dir.filePath("full");
        QVERIFY(QDir().mkpath(full));
        if (geteuid() == 0 &&
            mount("tmpfs", QFile::encodeName(full), "tmpfs", 0, "size=32k") == 0) {
            QCOMPARE(RecoveryStore::write(full, "copy", level, info), "na disku není místo.");
            QCOMPARE(QDir(full).entryList(QDir::Files | QDir::Hidden), QStringList());
            umount(QFile::encodeName(full));
        }

        // A copy cut off in the middle is moved aside and none is recovered.
        const QString key = RecoveryStore::keyFor(levelPath());
        QCOMPARE(RecoveryStore::write(state(), key, level, info), QString());
        QVERIFY(QFile::resize(copyPath(), QFileInfo(copyPath()).size() / 2));
        LevelDocument document(levelPath(), dir.filePath("EditPic.jpg"));
        RecoveryKeeper keeper(document, state());
        keeper.setLevelFile(levelPath());
        const auto left = keeper.leftBehind();
        QVERIFY(left);
        QCOMPARE(left->info.processId, GoneProcess);
        Level recovered;
        QString reason, movedTo;
        QVERIFY(!keeper.read(*left, recovered, reason, movedTo));
        QCOMPARE(reason, "kopie je neúplná.");
        QVERIFY(movedTo.startsWith(state() + "/damaged/"));
        QVERIFY(QFile::exists(movedTo));
        QVERIFY(!keeper.leftBehind());

        // A whole one is read back exactly, and a copy not wanted goes to discarded/.
        QCOMPARE(RecoveryStore::write(state(), key, level, info), QString());
        QVERIFY(keeper.read(*keeper.leftBehind(), recovered, reason, movedTo));
        QCOMPARE(encodeLevelFile(recovered), encodeLevelFile(level));
        QCOMPARE(recovered.hero(), QPoint(4, 4));
        keeper.discard(*keeper.leftBehind());
        QVERIFY(!keeper.leftBehind());
        QCOMPARE(QDir(state() + "/discarded").entryList({"*.VRK"}).size(), 1);
        QVERIFY(!QFile::exists(levelPath()));
    }

    void locksOneEditorPerFile() {
        LevelDocument document(levelPath(), dir.filePath("EditPic.jpg"));
        const QString other = dir.filePath("other/level99.VRK");
        const auto keeperOf = [&](const QString& path) {
            auto keeper = std::make_unique<RecoveryKeeper>(document, state());
            keeper->setLevelFile(path);
            return keeper;
        };
        auto first = keeperOf(levelPath());
        QCOMPARE(first->otherEditor(), qint64(0));
        // Held for an hour: an editor may run for days and keeps its file.
        const QString lockPath =
            QDir(state()).filePath(RecoveryStore::keyFor(levelPath()) + ".lock");
        QFile lockFile(lockPath);
        QVERIFY(lockFile.open(QIODevice::ReadWrite));
        QVERIFY(lockFile.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                                     QFileDevice::FileModificationTime));
        lockFile.close();
        QCOMPARE(keeperOf(levelPath())->otherEditor(), QCoreApplication::applicationPid());
        QCOMPARE(keeperOf(other)->otherEditor(), qint64(0));  // another file is another lock

        // The file moves (Save As, Open of another file): the lock moves with it.
        first->setLevelFile(other);
        QCOMPARE(keeperOf(levelPath())->otherEditor(), qint64(0));
        QCOMPARE(keeperOf(other)->otherEditor(), QCoreApplication::applicationPid());

        // A lock left by a process that is gone is taken over without a word.
        QByteArray held = bytesOf(QDir(state()).filePath(RecoveryStore::keyFor(other) + ".lock"));
        QVERIFY(held.startsWith(QByteArray::number(QCoreApplication::applicationPid()) + '\n'));
        held.replace(0, held.indexOf('\n'), QByteArray::number(GoneProcess));
        first.reset();
        QVERIFY(lockFile.open(QIODevice::WriteOnly | QIODevice::Truncate));
        lockFile.write(held);
        lockFile.close();
        QCOMPARE(keeperOf(levelPath())->otherEditor(), qint64(0));
    }
};

QTEST_GUILESS_MAIN(RecoveryTest)
#include "test_recovery.moc"
