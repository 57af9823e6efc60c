#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

class Level;

// The copies of unsaved levels kept for a crash, in one folder of the user's state: for each
// level file a copy in the level file's own format (KEY.VRK) and what it is (KEY.json), KEY
// standing for the level file's absolute path. Nothing here ever touches the level file.
namespace RecoveryStore {

// $XDG_STATE_HOME/varnok/recovery, else HOME/.local/state/varnok/recovery; empty without either.
QString folderFor(const QString& stateHome, const QString& home);
// The name part that stands for a level file: a hash of its absolute path's bytes.
QString keyFor(const QString& absoluteLevelPath);

// What is known of a copy besides its level.
struct Info {
    QString levelPath;  // the level file it belongs to
    QDateTime written;  // when the copy was taken
    int width = 0;
    int height = 0;
    bool heroPlaced = false;
    qint64 processId = 0;  // the editor that wrote it
    qint64 bytes = 0;      // the copy's exact length
};

// Writes `base`.VRK and `base`.json in `folder`, each replaced whole (QSaveFile); the folder is
// made when missing. On failure the Czech reason, else empty.
QString write(const QString& folder, const QString& base, const Level& level, Info info);
// Removes both files of a copy.
void remove(const QString& folder, const QString& base);

// The copy `base` in `folder`: its info, or nothing when its JSON is missing or unreadable.
std::optional<Info> readInfo(const QString& folder, const QString& base);
// Reads the level of a copy; false (with `reason` in Czech) unless it is whole.
bool readLevel(const QString& folder, const QString& base, const Info& info, Level& level,
               QString& reason);
// Moves both files into `folder`/`subfolder` under a new unique name, dated now. The path
// of the level copy moved, or empty when it could not be moved.
QString moveAside(const QString& folder, const QString& base, const QString& subfolder);
// Removes what was set aside in `folder`/`subfolder` longer ago than `days`.
void purgeOlderThan(const QString& folder, const QString& subfolder, int days);

}  // namespace RecoveryStore
