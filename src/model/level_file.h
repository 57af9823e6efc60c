#pragma once

#include <QString>

#include <optional>

class Dialogs;
class QIODevice;
class Level;

inline constexpr char LevelFileName[] = "level99.VRK";

// Why a level file was refused before anything in memory changed; Czech, for the user.
struct LevelFileRefusal {
    QString message;
    bool missing = false;  // there is no such file at all
};

// Reads the level file into `level`. The file's header (the three first lines and the sizes)
// is checked completely first: when it is refused, `level` is untouched and the reason comes
// back. Otherwise the level is replaced; a grid line of the wrong length is reported through
// `dialogs` and the rows before it stay.
std::optional<LevelFileRefusal> ReadLevelFile(Level& level, Dialogs& dialogs,
                                              const QString& path = LevelFileName);

// The same from an open device; `name` is the file name the messages give.
std::optional<LevelFileRefusal> ReadLevelFrom(Level& level, Dialogs& dialogs, QIODevice& device,
                                              const QString& name);

// Writes the level proper with its border. The previous file is replaced only when the
// whole new content is on disk; on failure it stays byte-identical and the reason comes back.
std::optional<QString> WriteLevelFile(const Level& level, const QString& path = LevelFileName);

// The bytes WriteLevelFile puts into the file.
QByteArray EncodeLevelFile(const Level& level);
