#pragma once

#include "recovery_store.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <future>
#include <memory>
#include <optional>

class Level;
class LevelDocument;

// Keeps a copy of the level being edited in the user's state folder, so that a crash costs at
// most the last moments of work: a burst of changes is copied once, soon after it, on this
// thread (a plain copy of the grid) and written on a thread of its own. A Save, and the keeper's
// end with the window, remove the copy. It also holds a lock on the level file, so that a second
// editor on the same file can tell. It never writes the level file and never opens a window.
class RecoveryKeeper : public QObject {
    Q_OBJECT

  public:
    // Copies go to `folder` (RecoveryStore::folderFor); an empty folder keeps none.
    RecoveryKeeper(LevelDocument& document, QString folder, QObject* parent = nullptr);
    ~RecoveryKeeper() override;

    // The level file now being edited: the lock and the copy's name move to it.
    void setLevelFile(const QString& absolutePath);
    // From now on every change of the level is copied; the level loaded before is not.
    void startKeeping() { keeping = true; }

    // The editor that held the level file's lock when it was asked for, or 0 when none did.
    qint64 otherEditor() const {
        settleLock();
        return lockHolder;
    }
    // Whether that editor still runs.
    bool otherEditorRunning() const;

    // A copy of this level file left by an editor that no longer runs, the newest if several.
    struct LeftBehind {
        QString base;
        RecoveryStore::Info info;
    };
    std::optional<LeftBehind> leftBehind() const;
    // Reads a copy left behind into `level`. One that cannot be read is moved aside into
    // damaged/ and false returned with the reason and where it went (empty: removed).
    bool read(const LeftBehind& copy, Level& level, QString& reason, QString& movedTo);
    // The level read from the copy is now the document's: this editor's own copy of it
    // replaces the one left behind.
    void adopt(const LeftBehind& copy);
    // The copy is not wanted: it goes to discarded/, removed after a week.
    void discard(const LeftBehind& copy);

    // The level file now holds the level: the copy goes.
    void levelSaved();
    // Takes the copy now instead of after the burst; for the benchmarks and the tests.
    void copyNow();
    // Waits until every copy taken is written.
    void waitForWrites() { writer.waitForDone(); }

    const QString& folder() const { return recoveryFolder; }

    // How long a burst of changes may go on before it is copied all the same, and how long
    // the level must rest to end a burst.
    static constexpr int RestMs = 400;
    static constexpr int LongestWaitMs = 1200;

  signals:
    // The first copy that could not be written, and why (a Czech reason); told once.
    void copyFailed(const QString& reason);

  private:
    void levelChanged();
    void burstTimedOut();
    void copyFailedWith(const QString& reason);
    QString ownBase() const;
    void releaseLevelFile();

    LevelDocument& document;
    QString recoveryFolder;
    QString levelPath;
    QString key;
    // Taking the lock writes and syncs a file, which can take a while on a busy disk: it is
    // taken on a thread of its own, and settled (waited for) where it is first needed.
    struct TakenLock {
        std::unique_ptr<QLockFile> lock;  // none when another editor holds it, or no folder
        qint64 holder = 0;                // that editor's process
    };
    static TakenLock takeLock(const QString& folder, const QString& key);
    void settleLock() const;
    mutable std::future<TakenLock> pendingLock;
    mutable std::unique_ptr<QLockFile> lock;
    mutable qint64 lockHolder = 0;
    bool keeping = false;
    bool failureTold = false;

    QTimer burst;
    QElapsedTimer clock;
    qint64 burstStart = -1;  // when the first change not yet copied came, or -1
    qint64 lastChange = 0;
    QThreadPool writer;  // one thread: copies are written in the order taken
};
