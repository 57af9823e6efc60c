#pragma once

#include "placement.h"

#include <QGroupBox>

class QLineEdit;
class QPushButton;

// The "Menu" block: the two size fields with the "x" between them and the buttons New,
// Open and Save. Enter in a size field asks for New too.
class LevelMenu : public QGroupBox {
    Q_OBJECT

  public:
    explicit LevelMenu(QWidget* parent);

    const Placement& placement() const { return place; }
    // Moves and sizes the block; a negative size is rejected and changes nothing.
    bool setPlacement(const Placement& next) { return placeWidget(this, place, next); }

    QString widthText() const;
    QString heightText() const;
    // Shows the sizes of the level on screen; the fields' own undo starts anew.
    void showSizes(int width, int height);

  signals:
    void newRequested();
    void openRequested();
    void saveRequested();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Placement place;
    QLineEdit* widthField;
    QLineEdit* heightField;
};
