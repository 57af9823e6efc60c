#include "file_bytes.h"
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

Level levelOf(int side) {
    Level level;
    level.reset(side, side);
    level.setCell(2, 2, HeroCode);
    return level;
}
QByteArray levelBytes(int side) {
    return encodeLevelFile(levelOf(side));
}

// The child's part, run under the shim: saves a level of `side` cells a side over `path`, under
// a file size limit when `limit` is not 0. Prints the failure, if any.
int saveInChild(const char* path, int side, rlim_t limit) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit fileSize{limit, limit};
    if (limit != 0) setrlimit(RLIMIT_FSIZE, &fileSize);
    const LevelWriteResult written = writeLevelFile(levelOf(side), QString::fromLocal8Bit(path));
    std::fputs(qPrintable(written.failure), stdout);
    return written.ok() ? 0 : 1;
}

}  // namespace

// Save where the file system refuses renames (and new files), in a child with the shim loaded.
class RefusedRenameTest : public QObject {
    Q_OBJECT
    const QTemporaryDir dir;
    const QString path = dir.filePath("level99.VRK");

    // Saves a level of `side` over a 20 x 20 one; what the child printed.
    QString save(const char* error, int side, bool newFilesToo = false, rlim_t limit = 0) {
        if (!writeFile(path, levelBytes(20))) return "no old file";
        QFile::remove(path + "~");
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_PRELOAD", VARNOK_RENAME_SHIM);
        environment.insert("VARNOK_REFUSE_RENAME", error);
        if (newFilesToo) environment.insert("VARNOK_REFUSE_NEW_FILES", "1");
        // The sanitizers' runtime then comes second among the preloaded libraries.
        environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {"save", path, QString::number(side), QString::number(limit)});
        child.waitForFinished(60000);
        return QString::fromUtf8(child.readAllStandardOutput());
    }

  private slots:
    void savesInPlaceKeepingTheOldFile() {
        const QStringList bothFiles{"level99.VRK", "level99.VRK~"};
        for (const auto& [error, newFilesToo] :
             {std::pair{"EXDEV", false}, {"EPERM", false}, {"EXDEV", true}}) {
            QCOMPARE(save(error, 30, newFilesToo), QString());
            QCOMPARE(bytesOf(path), levelBytes(30));
            QCOMPARE(bytesOf(path + "~"), levelBytes(20));
            QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), bothFiles);
        }
        // The write in place cut off midway by a size limit: the old level is whole in NAME~.
        QVERIFY(save("EXDEV", 100, true, 8192).contains("soubor by byl větší"));
        QCOMPARE(bytesOf(path + "~"), levelBytes(20));

        // A full disk is no refused rename: the save fails, the old file stays, nothing beside.
        QVERIFY(save("ENOSPC", 30).contains("na disku není místo"));
        QCOMPARE(bytesOf(path), levelBytes(20));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), bothFiles.mid(0, 1));
    }
};

int main(int argc, char** argv) {
    if (argc == 5 && std::strcmp(argv[1], "save") == 0)
        return saveInChild(argv[2], std::atoi(argv[3]), static_cast<rlim_t>(std::atoll(argv[4])));
    QCoreApplication app(argc, argv);
    RefusedRenameTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_refused_rename.moc"
