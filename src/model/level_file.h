#pragma once

#include <QString>

class QIODevice;
class Level;

// The level file the editor works on, and the sprite sheet it looks for beside it.
inline constexpr char LevelFileName[] = "level99.VRK";
inline constexpr char SpriteSheetFileName[] = "EditPic.jpg";
// The sprite sheet that goes with a level file: the one in the level file's folder.
QString spriteSheetBeside(const QString& levelFile);

// What reading a level file found.
struct LevelReadResult {
    // Why the file was refused; empty when it was read. A refused file changes nothing.
    QString refusal;
    bool missing = false;  // refused because there is no such file at all
    // A grid line of the wrong length: the rows before it were read, the rest is floor.
    QString warning;

    bool ok() const { return refusal.isEmpty(); }
};

// Reads the level file at `path` into `level`. The header (the three first lines and the
// sizes) is checked completely first: when it is refused, `level` is untouched.
[[nodiscard]] LevelReadResult readLevelFile(Level& level, const QString& path);

// The same from an open device; `name` is the file name the messages give.
[[nodiscard]] LevelReadResult readLevelFrom(Level& level, QIODevice& device, const QString& name);

struct LevelWriteResult {
    QString failure;  // empty when the file was written
    bool ok() const { return failure.isEmpty(); }
};

// Writes the level proper with its border. The previous file is replaced only when the
// whole new content is on disk; on failure it stays byte-identical.
[[nodiscard]] LevelWriteResult writeLevelFile(const Level& level, const QString& path);

// The bytes writeLevelFile puts into the file.
QByteArray encodeLevelFile(const Level& level);
