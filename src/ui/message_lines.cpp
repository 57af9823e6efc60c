#include "message_lines.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

MessageLines::MessageLines(const QString& text, const QFont& font, QWidget* parent)
    : QWidget(parent) {
    setFont(font);
    setAccessibleName(text);
    lineSpacing = QFontMetrics(font).lineSpacing();
    qreal widest = 0;
    for (QStringView line : QStringView(text).split(u'\n')) {
        if (line.endsWith(u'\r')) line.chop(1);
        QStaticText& shown = lines.emplace_back(line.toString());
        shown.setTextFormat(Qt::PlainText);
        shown.setPerformanceHint(QStaticText::AggressiveCaching);
        shown.prepare(QTransform(), font);
        widest = std::max(widest, shown.size().width());
    }
    textSize =
        QSize(static_cast<int>(std::ceil(widest)), lineSpacing * static_cast<int>(lines.size()));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MessageLines::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    int top = 0;
    for (const QStaticText& line : lines) {
        painter.drawStaticText(0, top, line);
        top += lineSpacing;
    }
}
