#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QWidget;

// The window's fonts were designed with MS Sans Serif. Where it is not installed, Liberation
// Sans, whose widths are MS Sans Serif's, is asked for by name: a family the font database
// does not know costs a search through fontconfig's fallbacks for every font made of it.
QFont sansSerif(qreal points);
QFont boldSansSerif(qreal points);
void setColour(QWidget* widget, QPalette::ColorRole role, QColor colour);

// Makes the widget's font smaller until its caption (its "text") fits its width less `margin`:
// the window's captions stay whole where the font asked for is missing and a wider one stands
// in. Done when the widget is first drawn: measuring text loads its font, and a widget not yet
// in view need not hold up the first frame for that.
void shrinkToFitWhenDrawn(QWidget* widget, int margin = 0);
