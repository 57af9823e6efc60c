#pragma once

#include <QPainter>

// The hero and the enemies, seen from above, each drawn onto a 64 x 64 floor cell.
namespace Art {

void drawHero(QPainter& p);   // 135: the green Varnok
void drawBoss(QPainter& p);   // 136: a horned red demon
void drawGuard(QPainter& p);  // 137: an armoured soldier with a spear

}  // namespace Art
