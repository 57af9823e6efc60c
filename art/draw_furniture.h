#pragma once

#include <QPainter>

// Furniture and fittings, each drawn onto a 64 x 64 floor cell.
namespace Art {

void drawChair(QPainter& p);       // 23
void drawSmallTable(QPainter& p);  // 24
void drawCrate(QPainter& p);       // 25
void drawFlowerpot(QPainter& p);   // 26
void drawBinA(QPainter& p);        // 27: round metal wastebasket
void drawBinB(QPainter& p);        // 28: square bin with a hinged lid
void drawPuddle(QPainter& p);      // 29
void drawToilet(QPainter& p);      // 134

}  // namespace Art
