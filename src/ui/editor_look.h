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

// Makes the widget's font smaller until `text` fits `width` pixels: the window's captions
// stay whole where the font asked for is missing and a wider one stands in.
void shrinkToFit(QWidget* widget, const QString& text, int width);
