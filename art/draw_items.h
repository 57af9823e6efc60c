#pragma once

#include <QPainter>

// Things to pick up or use, each drawn onto a 64 x 64 floor cell.
namespace Art {

void drawMoney(QPainter& p);      // 124
void drawTeleport(QPainter& p);   // 125
void drawExtraLife(QPainter& p);  // 126
void drawExit(QPainter& p);       // 127
void drawSecret(QPainter& p);     // 138

}  // namespace Art
