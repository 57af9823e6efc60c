#pragma once

#include <QStaticText>
#include <QWidget>

#include <vector>

// A message's text shown line by line as given, never wrapped: each line is laid out once.
// A message box sizes a label by laying out its text again for every width it tries, which
// for many long lines costs more than the rest of the box.
class MessageLines : public QWidget {
  public:
    MessageLines(const QString& text, const QFont& font, QWidget* parent);
    QSize sizeHint() const override { return textSize; }
    QSize minimumSizeHint() const override { return textSize; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<QStaticText> lines;
    int lineSpacing = 0;
    QSize textSize;
};
