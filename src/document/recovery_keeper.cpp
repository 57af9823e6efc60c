#include "recovery_keeper.h"

#include "level.h"
#include "level_document.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace {
bool processRunning(qint64 id) {
    return id > 0 && (::kill(static_cast<pid_t>(id), 0) == 0 || errno == EPERM);
}
const QString Discarded = QStringLiteral("discarded");
const QString Damaged = QStringLiteral("damaged");
constexpr int KeptDays = 7;
constexpr int WriterNiceness = 10;
}  // namespace

RecoveryKeeper::RecoveryKeeper(LevelDocument& document, QString folder, QObject* parent)
    : QObject(parent), document(document), recoveryFolder(std::move(folder)) {
    writer.setMaxThreadCount(1);
    burst.setSingleShot(true);
    clock.start();
    connect(&burst, &QTimer::timeout, this, &RecoveryKeeper::burstTimedOut);
    connect(&document, &LevelDocument::cellsChanged, this, &RecoveryKeeper::levelChanged);
    connect(&document, &LevelDocument::levelReplaced, this, &RecoveryKeeper::levelChanged);
    // Open… and Save As… move the copy and the lock to the file now worked on.
    connect(&document, &LevelDocument::levelFileChanged, this, &RecoveryKeeper::setLevelFile);
    connect(&document, &LevelDocument::levelSaved, this, &RecoveryKeeper::levelSaved);
    if (recoveryFolder.isEmpty()) return;
    RecoveryStore::purgeOlderThan(recoveryFolder, Discarded, KeptDays);
    RecoveryStore::purgeOlderThan(recoveryFolder, Damaged, KeptDays);
}

// Closing the window: nothing of it stays behind.
RecoveryKeeper::~RecoveryKeeper() {
    burst.stop();
    releaseLevelFile();
}

void RecoveryKeeper::releaseLevelFile() {
    settleLock();
    writer.waitForDone();
    if (!key.isEmpty()) RecoveryStore::remove(recoveryFolder, ownBase());
    if (lock) lock->unlock();
    lock.reset();
    lockHolder = 0;
}

void RecoveryKeeper::setLevelFile(const QString& absolutePath) {
    if (recoveryFolder.isEmpty() || absolutePath == levelPath) return;
    releaseLevelFile();
    levelPath = absolutePath;
    key = RecoveryStore::keyFor(absolutePath);
    pendingLock = std::async(std::launch::async, &RecoveryKeeper::takeLock, recoveryFolder, key);
}

RecoveryKeeper::TakenLock RecoveryKeeper::takeLock(const QString& folder, const QString& key) {
    QDir().mkpath(folder);
    TakenLock taken;
    taken.lock = std::make_unique<QLockFile>(QDir(folder).filePath(key + QStringLiteral(".lock")));
    // An editor may run for days: only a lock whose process is gone counts as stale.
    taken.lock->setStaleLockTime(0);
    if (taken.lock->tryLock(0)) return taken;
    QString host, application;
    if (taken.lock->error() == QLockFile::LockFailedError)
        taken.lock->getLockInfo(&taken.holder, &host, &application);
    // A state folder that cannot be written holds no lock; nobody else can hold one there.
    taken.lock.reset();
    return taken;
}

void RecoveryKeeper::settleLock() const {
    if (!pendingLock.valid()) return;
    TakenLock taken = pendingLock.get();
    lock = std::move(taken.lock);
    lockHolder = taken.holder;
}

bool RecoveryKeeper::otherEditorRunning() const {
    settleLock();
    return processRunning(lockHolder);
}

// The lock's holder writes the copy under the file's key; an editor let in beside it, under the
// key and its own process, so that neither overwrites the other's.
QString RecoveryKeeper::ownBase() const {
    settleLock();
    if (lockHolder == 0) return key;
    return key + QStringLiteral(".p") + QString::number(QCoreApplication::applicationPid());
}

std::optional<RecoveryKeeper::LeftBehind> RecoveryKeeper::leftBehind() const {
    if (key.isEmpty()) return std::nullopt;
    settleLock();
    std::optional<LeftBehind> newest;
    const QStringList found =
        QDir(recoveryFolder).entryList({key + QStringLiteral("*.json")}, QDir::Files);
    for (const QString& name : found) {
        const QString base = name.chopped(5);
        const auto info = RecoveryStore::readInfo(recoveryFolder, base);
        // The lock's holder alive keeps its copy; so does any other editor still running.
        const bool orphaned =
            base == key ? lockHolder == 0 : !processRunning(info ? info->processId : 0);
        if (!orphaned || (info && info->processId == QCoreApplication::applicationPid())) continue;
        const RecoveryStore::Info known = info.value_or(RecoveryStore::Info{});
        if (!newest || known.written > newest->info.written) newest = LeftBehind{base, known};
    }
    return newest;
}

bool RecoveryKeeper::read(const LeftBehind& copy, Level& level, QString& reason, QString& movedTo) {
    if (RecoveryStore::readLevel(recoveryFolder, copy.base, copy.info, level, reason)) return true;
    movedTo = RecoveryStore::moveAside(recoveryFolder, copy.base, Damaged);
    if (movedTo.isEmpty()) RecoveryStore::remove(recoveryFolder, copy.base);
    return false;
}

void RecoveryKeeper::adopt(const LeftBehind& copy) {
    copyNow();
    // Another editor's copy goes once this one's is written; this editor's own is replaced.
    if (copy.base == ownBase()) return;
    writer.start(
        [folder = recoveryFolder, base = copy.base] { RecoveryStore::remove(folder, base); });
}

void RecoveryKeeper::discard(const LeftBehind& copy) {
    if (RecoveryStore::moveAside(recoveryFolder, copy.base, Discarded).isEmpty())
        RecoveryStore::remove(recoveryFolder, copy.base);
}

// Called for every cell a stroke paints: only the time is noted.
void RecoveryKeeper::levelChanged() {
    if (!keeping || key.isEmpty()) return;
    lastChange = clock.elapsed();
    if (burstStart < 0) burstStart = lastChange;
    if (!burst.isActive()) burst.start(RestMs);
}

// The burst ends once the level has rested, or has waited long enough while changing.
void RecoveryKeeper::burstTimedOut() {
    const qint64 now = clock.elapsed();
    const qint64 rested = now - lastChange;
    const qint64 waited = now - burstStart;
    if (rested < RestMs && waited < LongestWaitMs)
        return burst.start(static_cast<int>(std::min(RestMs - rested, LongestWaitMs - waited)));
    copyNow();
}

void RecoveryKeeper::copyNow() {
    burst.stop();
    burstStart = -1;
    if (key.isEmpty()) return;
    // The grid is copied here, before the next event can change it; the rest is the writer's.
    auto level = std::make_shared<const Level>(document.level());
    RecoveryStore::Info info;
    info.levelPath = levelPath;
    info.written = QDateTime::currentDateTime();
    info.width = level->width();
    info.height = level->height();
    info.processId = QCoreApplication::applicationPid();
    writer.start([this, level, info, folder = recoveryFolder, base = ownBase()]() mutable {
        // Painting goes first when the cores are busy: the copy can wait a moment.
        ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), WriterNiceness);
        info.heroPlaced = containsHero(*level);
        const QString failure = RecoveryStore::write(folder, base, *level, info);
        if (!failure.isEmpty())
            QMetaObject::invokeMethod(
                this, [this, failure] { copyFailedWith(failure); }, Qt::QueuedConnection);
    });
}

void RecoveryKeeper::copyFailedWith(const QString& reason) {
    if (std::exchange(failureTold, true)) return;
    emit copyFailed(reason);
}

void RecoveryKeeper::levelSaved() {
    burst.stop();
    burstStart = -1;
    if (key.isEmpty()) return;
    writer.start(
        [folder = recoveryFolder, base = ownBase()] { RecoveryStore::remove(folder, base); });
}
