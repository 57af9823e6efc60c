#pragma once

#include "canvas_surfaces.h"
#include "level.h"
#include "level_renderer.h"
#include "map_view_math.h"
#include "picture_box.h"
#include "sprite_sheet.h"

#include <QWidget>

#include <map>
#include <optional>

class Dialogs;
class QButtonGroup;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

// The editor's one window: its controls, named as the editor's behaviour names them, and the
// state that lives as long as the window.
class Form1 : public QWidget {
    Q_OBJECT

  public:
    explicit Form1(Dialogs& dialogs);
    ~Form1() override;

    // Start-up: wall tool, sprite sheet, window, level, help.
    void Form_Load();
    void Command1_Click();  // Nový
    void Command2_Click();  // Uložit
    void Command3_Click();  // Otevřít
    void Command4_Click();  // ???

    enum class LoadMoment { StartUp, Open };
    void LoadLevel(LoadMoment moment);
    void RedrawLevel();
    void ArrangeControls();
    void UpdateViewFrame();

    void Option1_Click(int index);
    void Picture5_MouseDown(int button, int shift, float x, float y);
    void Picture5_MouseMove(int button, int shift, float x, float y);
    void Picture2_MouseDown(int button, int shift, float x, float y);
    void Picture2_MouseMove(int button, int shift, float x, float y);
    void Picture3_MouseDown(int button, int shift, float x, float y);
    void Picture3_MouseMove(int button, int shift, float x, float y);

    // The level and what draws it.
    Level level;
    SpriteSheet sheet;
    LevelRenderer renderer{level, sheet};

    // Controls, in the order they are created.
    QPushButton* Command4;
    PictureBox* Picture4;
    PictureBox* Picture5;
    std::map<int, QToolButton*> Option1;  // by tile code
    QGroupBox* Frame2;
    QPushButton* Command3;
    QPushButton* Command2;
    QPushButton* Command1;
    QLineEdit* Text1;
    QLineEdit* Text2;
    QLabel* Label1;
    MinimapSurface* Picture3;
    OutlineShape* Shape1;
    QFrame* Picture1;
    MapSurface* Picture2;
    OutlineShape* Shape2;
    QLabel* Label3;
    QLabel* Label2;

    Placement frame2Placement;
    Placement picture1Placement;

    qint16 SelectedCode = 0;
    float GrabY = 0;
    float DownX = 0;
    float DownY = 0;
    std::optional<int> LastCellX;
    std::optional<int> LastCellY;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void createControls();
    void createPalette();
    void LoadSpriteSheet();
    void Form_Resize();
    void moveMap(float left, float top);
    void moveOutline(float x, float y);
    void showHourglass(bool shown);

    Dialogs& dialogs;
    QWidget* viewportClient;  // the inside of Picture1's border, holding the map
    QButtonGroup* paletteGroup;
    bool hourglassShown = false;
};
