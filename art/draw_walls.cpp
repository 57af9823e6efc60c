#include "draw_walls.h"

#include "art_style.h"
#include "wall_pieces.h"

namespace Art {

namespace {

// The wall's outline: the centre block and one bar to each edge an arm reaches.
// `overhang` carries the arms past the cell's edges, for a shadow that joins its neighbour's.
QPainterPath wallShape(const WallArms& arms, int overhang = 0) {
    QPainterPath shape;
    shape.setFillRule(Qt::WindingFill);  // the overlapping bars add up, not cancel
    const int band = WallFar - WallNear;
    shape.addRect(WallNear, WallNear, band, band);
    if (arms.left) shape.addRect(-overhang, WallNear, WallFar + overhang, band);
    if (arms.right) shape.addRect(WallNear, WallNear, Cell - WallNear + overhang, band);
    if (arms.above) shape.addRect(WallNear, -overhang, band, WallFar + overhang);
    if (arms.below) shape.addRect(WallNear, WallNear, band, Cell - WallNear + overhang);
    return shape.simplified();
}

// The look of a straight piece: 0 plain bricks, 1 cracked, 2 mossy, 3 old dark bricks.
void decorate(QPainter& painter, int look, bool horizontal, int seed) {
    Noise noise(static_cast<std::uint32_t>(seed));
    // Keep every mark off the edges, so all looks join the same.
    const QRect inner = horizontal ? QRect(8, WallNear + 3, Cell - 16, WallFar - WallNear - 6)
                                   : QRect(WallNear + 3, 8, WallFar - WallNear - 6, Cell - 16);
    if (look == 1) {
        painter.setPen(QPen(WallDark, 1.4));
        QPainterPath crack;
        crack.moveTo(inner.center().x() - 10, inner.top());
        crack.lineTo(inner.center().x() - 3, inner.center().y() - 2);
        crack.lineTo(inner.center().x() + 4, inner.center().y() + 3);
        crack.lineTo(inner.center().x() + 12, inner.bottom());
        painter.drawPath(crack);
    } else if (look == 2) {
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < 7; ++i) {
            painter.setBrush(QColor(70 + noise.next(30), 120 + noise.next(40), 50));
            painter.drawEllipse(QPointF(inner.left() + noise.next(inner.width()),
                                        inner.top() + noise.next(inner.height())),
                                2.5 + noise.next(3), 2 + noise.next(2));
        }
    }
    if (look == 0 || look == 3) {
        painter.setPen(QPen(look == 3 ? WallDark.darker(120) : WallDark, 1));
        const int along = horizontal ? inner.width() : inner.height();
        for (int i = 0; i < 3; ++i) {
            const int offset = (i * along) / 3 + (look == 3 ? 6 : 0);
            if (horizontal)
                painter.drawLine(inner.left() + offset, inner.top(), inner.left() + offset,
                                 inner.bottom());
            else
                painter.drawLine(inner.left(), inner.top() + offset, inner.right(),
                                 inner.top() + offset);
        }
        if (horizontal)
            painter.drawLine(inner.left(), inner.center().y(), inner.right(), inner.center().y());
        else
            painter.drawLine(inner.center().x(), inner.top(), inner.center().x(), inner.bottom());
    }
}

}  // namespace

QImage drawWallPiece(int piece) {
    QImage cell = floorCell(100 + piece);
    QPainter painter(&cell);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const WallArms arms = armsOfPiece(piece);
    const QPainterPath shape = wallShape(arms);
    dropShadow(painter, wallShape(arms, 8), 4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(WallStone);
    painter.drawPath(shape);
    painter.setClipPath(shape);
    speckle(painter, cell.rect(), WallStone, 260, 7);
    // Lit top and left faces, shaded bottom and right ones; open where an arm goes on.
    const struct {
        bool from;  // the part before the centre block
        bool centre;
        bool to;
    } faces[4] = {{arms.left, !arms.above, arms.right},    // top, y = WallNear
                  {arms.left, !arms.below, arms.right},    // bottom, y = WallFar
                  {arms.above, !arms.left, arms.below},    // left, x = WallNear
                  {arms.above, !arms.right, arms.below}};  // right, x = WallFar
    const int stops[4] = {0, WallNear, WallFar, Cell};
    for (int face = 0; face < 4; ++face) {
        const bool lit = face == 0 || face == 2;
        const int at = lit ? WallNear + 1 : WallFar - 1;
        painter.setPen(QPen(lit ? WallLight : WallDark, 2));
        const bool parts[3] = {faces[face].from, faces[face].centre, faces[face].to};
        for (int part = 0; part < 3; ++part) {
            if (!parts[part]) continue;
            if (face < 2)
                painter.drawLine(stops[part], at, stops[part + 1], at);
            else
                painter.drawLine(at, stops[part], at, stops[part + 1]);
        }
    }
    if (wallKey(arms) == HorizontalWallKey || wallKey(arms) == VerticalWallKey)
        decorate(painter, (piece - FirstHorizontalPiece) % 4, arms.left, piece);
    if (arms.left + arms.below + arms.right + arms.above <= 1) {  // a block or an end
        painter.setPen(QPen(WallDark, 1));
        painter.drawRect(WallNear + 6, WallNear + 6, WallFar - WallNear - 13,
                         WallFar - WallNear - 13);
    }
    return cell;
}

}  // namespace Art
