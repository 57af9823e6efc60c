#include "start_up_reads.h"

#include "file_names.h"

#include <sys/stat.h>

StartUpReads::StartUpReads(const QString& levelFile, const QString& sheetFile)
    : levelPath(levelFile), levelStamp(stampOf(levelFile)) {
    sheet = std::async(std::launch::async, [sheetFile] {
        SheetRead read;
        read.sheet = SpriteSheet::fromFileOrBuiltIn(sheetFile, read.state);
        return read;
    });
    level = std::async(std::launch::async, [levelFile] {
        LevelRead read;
        read.result = readLevelFile(read.level, levelFile);
        return read;
    });
}

// A read never taken (the editor ended first) is waited for: the futures' own destructors do.
StartUpReads::~StartUpReads() = default;

std::optional<StartUpReads::SheetRead> StartUpReads::takeSheet() {
    if (!sheet.valid()) return std::nullopt;
    return sheet.get();
}

std::optional<StartUpReads::LevelRead> StartUpReads::takeLevel() {
    if (!level.valid()) return std::nullopt;
    LevelRead read = level.get();
    // The stamp was taken before the read began: a file replaced since then is read again.
    if (stampOf(levelPath) != levelStamp) return std::nullopt;
    return read;
}

StartUpReads::Stamp StartUpReads::stampOf(const QString& path) {
    struct stat info {};
    if (!statusOf(path, info)) return {};
    return {true, static_cast<long long>(info.st_size),
            static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec,
            static_cast<unsigned long long>(info.st_ino)};
}
