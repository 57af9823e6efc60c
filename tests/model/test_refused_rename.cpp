#include "level.h"
#include "level_file.h"
#include "tile_codes.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>

#include <csignal>
#include <cstring>

namespace {

Level levelOf(int side, int code) {
    Level level;
    level.reset(side, side);
    level.setCell(2, 2, static_cast<qint16>(code));
    return level;
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// In the child, under the shim: saves a level of `side` cells a side into `path`, with the
// file size limited to `limit` bytes when it is not 0; prints the failure, if any.
int saveInChild(const QString& path, int side, rlim_t limit) {
    std::signal(SIGXFSZ, SIG_IGN);
    if (limit != 0) {
        const rlimit fileSize{limit, limit};
        setrlimit(RLIMIT_FSIZE, &fileSize);
    }
    const LevelWriteResult written = writeLevelFile(levelOf(side, HeroCode), path);
    std::fputs(qPrintable(written.failure), stdout);
    return written.ok() ? 0 : 1;
}

}  // namespace

// Save where the file system refuses the rename, run in a child with the shim preloaded.
class RefusedRenameTest : public QObject {
    Q_OBJECT

    // Saves over a file holding the 20 x 20 level, with renames refused with `error`; the
    // child's output.
    QString saveRefused(const QString& path, const char* error, int side, rlim_t limit = 0,
                        bool newFilesToo = false) {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_PRELOAD", VARNOK_RENAME_SHIM);
        environment.insert("VARNOK_REFUSE_RENAME", error);
        if (newFilesToo) environment.insert("VARNOK_REFUSE_NEW_FILES", "1");
        // The sanitizers' runtime then comes second in the list of preloaded libraries.
        environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {"save", path, QString::number(side), QString::number(limit)});
        child.waitForFinished(60000);
        return QString::fromUtf8(child.readAllStandardOutput());
    }

  private slots:
    void savesInPlaceKeepingTheOldFile() {
        const QTemporaryDir dir;
        const QString path = dir.filePath("level99.VRK");
        const QByteArray old = encodeLevelFile(levelOf(20, 25));
        for (const char* error : {"EXDEV", "EPERM"}) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(old);
            file.close();
            QFile::remove(path + "~");
            QCOMPARE(saveRefused(path, error, 30), QString());
            QCOMPARE(bytesOf(path), encodeLevelFile(levelOf(30, HeroCode)));
            QCOMPARE(bytesOf(path + "~"), old);
            QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        }

        // No new file beside it either, and the write cut off by a size limit midway: the
        // old level is whole in NAME~.
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(old);
        file.close();
        QCOMPARE(saveRefused(path, "EXDEV", 40, 0, true), QString());
        QCOMPARE(bytesOf(path), encodeLevelFile(levelOf(40, HeroCode)));
        QCOMPARE(bytesOf(path + "~"), old);
        QVERIFY(saveRefused(path, "EXDEV", 100, 8192, true).contains("soubor by byl větší"));
        QCOMPARE(bytesOf(path + "~"), encodeLevelFile(levelOf(40, HeroCode)));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);

        // A full disk is no refused rename: the save fails, the old file stays, nothing beside.
        QFile::remove(path + "~");
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(old);
        file.close();
        QVERIFY(saveRefused(path, "ENOSPC", 30).contains("na disku není místo"));
        QCOMPARE(bytesOf(path), old);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{"level99.VRK"});
    }
};

int main(int argc, char** argv) {
    if (argc == 5 && std::strcmp(argv[1], "save") == 0)
        return saveInChild(QString::fromLocal8Bit(argv[2]), std::atoi(argv[3]),
                           static_cast<rlim_t>(std::atoll(argv[4])));
    QCoreApplication app(argc, argv);
    RefusedRenameTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_refused_rename.moc"
