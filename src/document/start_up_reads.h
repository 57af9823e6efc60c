#pragma once

#include "level.h"
#include "level_file.h"
#include "sprite_sheet.h"

#include <QString>

#include <future>
#include <optional>

// The two slow reads of start-up, the sprite sheet's decoding and the level file, begun on
// worker threads as soon as the paths are known, so that they overlap the application's and
// the window's construction. The editor takes their results in the usual order, at the usual
// moments: the sheet first, then the level. A level file that changed in between is read again.
class StartUpReads {
  public:
    StartUpReads(const QString& levelFile, const QString& sheetFile);
    ~StartUpReads();
    StartUpReads(const StartUpReads&) = delete;
    StartUpReads& operator=(const StartUpReads&) = delete;

    struct SheetRead {
        SpriteSheet sheet;
        SpriteSheet::FileState state = SpriteSheet::FileState::Missing;
    };
    // Waits for the sheet; nothing after the first time.
    std::optional<SheetRead> takeSheet();

    struct LevelRead {
        Level level;
        LevelReadResult result;
    };
    // Waits for the level file's read, once only; nothing when the file at the path is no
    // longer the one that was read (its size, time, or the file itself changed).
    std::optional<LevelRead> takeLevel();

  private:
    // What identifies a file's content without reading it again.
    struct Stamp {
        bool exists = false;
        long long size = 0;
        long long modifiedNs = 0;
        unsigned long long inode = 0;
        bool operator==(const Stamp&) const = default;
    };
    static Stamp stampOf(const QString& path);

    QString levelPath;
    Stamp levelStamp;
    std::future<SheetRead> sheet;
    std::future<LevelRead> level;
};
