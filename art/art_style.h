#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cstdint>

// The look every picture shares: seen from above, light from the top-left, one earthy palette.
namespace Art {

inline constexpr int Cell = 64;

// The wall band: every wall piece is this band, so pieces join where their arms meet.
inline constexpr int WallNear = 18;  // first pixel of the band across a cell
inline constexpr int WallFar = 46;   // first pixel past the band
inline const QColor WallStone(98, 96, 108);
inline const QColor WallLight(150, 148, 160);
inline const QColor WallDark(58, 56, 66);
inline const QColor FloorSand(196, 178, 140);
inline const QColor FloorGrout(170, 150, 112);
inline const QColor Shadow(0, 0, 0, 70);
inline const QColor Wood(150, 98, 52);
inline const QColor WoodDark(96, 60, 30);

// A small generator of our own, so the pictures are the same in every run.
class Noise {
  public:
    explicit Noise(std::uint32_t seed) : state(seed * 2654435761u + 1) {}
    int next(int bound) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(bound));
    }

  private:
    std::uint32_t state;
};

// A cell of plain floor, the ground every single-cell picture stands on.
QImage floorCell(int seed);
void paintFloor(QPainter& painter, const QRect& area, int seed);
// Speckles of darker and lighter grains inside `area`, for stone and earth.
void speckle(QPainter& painter, const QRect& area, QColor base, int grains, int seed);
// A soft shadow below and right of a shape, the light coming from the top-left.
void dropShadow(QPainter& painter, const QPainterPath& shape, double offset = 3);
// A shape with its shadow, filled and outlined.
void solid(QPainter& painter, const QPainterPath& shape, QColor fill, QColor edge,
           double shadow = 3);
QPainterPath ellipse(double x, double y, double w, double h);
QPainterPath rounded(double x, double y, double w, double h, double radius);

}  // namespace Art
