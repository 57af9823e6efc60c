#pragma once

#include <QIcon>
#include <QIconEngine>

// An icon whose picture file is read the first time the icon is drawn or measured. Most of
// the palette's pictures are scrolled out of view when the window opens.
class LazyIconEngine : public QIconEngine {
  public:
    explicit LazyIconEngine(QString fileName) : fileName(std::move(fileName)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    // Not null until it is read and turns out to be: asking does not read it.
    bool isNull() override { return tried && icon.isNull(); }
    QIconEngine* clone() const override { return new LazyIconEngine(*this); }

  private:
    const QIcon& loaded();
    QString fileName;
    QIcon icon;
    bool tried = false;
};
