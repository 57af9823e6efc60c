#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QWidget;

// The window's fonts were designed with MS Sans Serif, bold; fontconfig stands in for it.
QFont boldSansSerif(qreal points);
void setColour(QWidget* widget, QPalette::ColorRole role, QColor colour);
