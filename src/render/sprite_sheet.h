#pragma once

#include <QImage>
#include <QRect>

#include <stdexcept>

inline constexpr int SheetColumns = 10;
inline constexpr int SheetRows = 14;
inline constexpr char SpriteSheetFileName[] = "EditPic.jpg";

// Asking for a sheet cell that does not exist: codes outside 0..139 have no picture.
class SheetCellError : public std::out_of_range {
  public:
    explicit SheetCellError(int cell);
    int cell;
};

// Holds the sprite sheet and cuts it into 10 x 14 equal cells of width / 10 by height / 14,
// numbered row by row from the top-left. A 640 x 896 sheet gives cells of one map cell.
class SpriteSheet {
  public:
    SpriteSheet() = default;
    explicit SpriteSheet(QImage image);

    const QImage& image() const { return sheet; }
    QSize cellSize() const { return {sheet.width() / SheetColumns, sheet.height() / SheetRows}; }
    // Pixels of cell n on the sheet; throws SheetCellError for n outside 0..139.
    QRect cellRect(int n) const;

  private:
    QImage sheet;
};
