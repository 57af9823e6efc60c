#pragma once

#include <QImage>
#include <QRect>

// Holds the sprite sheet and cuts it into 10 x 14 equal cells of width / 10 by height / 14,
// numbered row by row from the top-left. A 640 x 896 sheet gives cells of one map cell.
class SpriteSheet {
  public:
    SpriteSheet() = default;
    explicit SpriteSheet(QImage image);

    // The sheet drawn into the program, used when no sheet of the user's can be read.
    static SpriteSheet builtIn();

    // What a sheet file turned out to be.
    enum class FileState {
        Loaded,    // read whole and large enough to cut
        Missing,   // there is no such file
        Unusable,  // unreadable, cut off before its end, or too small to cut
    };
    // The sheet in the file at `path`; the built-in one when it is missing or unusable.
    static SpriteSheet fromFileOrBuiltIn(const QString& path, FileState& state);
    // Whether an image can serve as a sheet: readable and at least one pixel a cell.
    static bool usable(const QImage& image);

    const QImage& image() const { return sheet; }
    QSize cellSize() const;
    // Pixels of cell n on the sheet, for a code that has a picture (0..139).
    QRect cellRect(int n) const;

  private:
    QImage sheet;
};
