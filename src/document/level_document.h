#pragma once

#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "sprite_sheet.h"

#include <QDir>
#include <QObject>
#include <QString>

// The level being edited and everything that belongs to it: the grid, the sprite sheet, the
// canvases that show them and the files they come from and go to. Every edit of a cell goes
// through here. It reports through its results and never opens a window.
class LevelDocument : public QObject {
    Q_OBJECT

  public:
    // Works with the level file and the sprite sheet at these paths.
    LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent = nullptr);
    // Works in `folder`, with level99.VRK and EditPic.jpg in it.
    explicit LevelDocument(const QDir& folder, QObject* parent = nullptr);

    const Level& level() const { return currentLevel; }
    const SpriteSheet& sheet() const { return spriteSheet; }
    MapCanvas& map() { return renderer.map(); }
    MinimapCanvas& minimap() { return renderer.minimap(); }
    const QString& levelFile() const { return levelPath; }

    // Loads the user's sprite sheet, or the built-in one when there is none. False when the
    // user's sheet cannot be used (the built-in one is used then).
    [[nodiscard]] bool loadSpriteSheet();

    // Replaces the level by one of these sizes, all floor, without a hero.
    void newLevel(int width, int height);
    // Reads the level file; a refused file leaves the level as it was.
    [[nodiscard]] LevelReadResult open();
    // Writes the level file; a failed write leaves the old file as it was.
    [[nodiscard]] LevelWriteResult save() const;

    // The whole-level redraw: the grid onto the canvases (false when a code without a
    // picture stopped it), then the wall frame drawn with `tool`.
    [[nodiscard]] bool repaintGrid();
    void drawFrame(int tool);

    // Applies a palette tool to a cell and re-joins the walls around it.
    void applyTool(int x, int y, int tool);

  private:
    QString levelPath;
    QString sheetPath;
    Level currentLevel;
    SpriteSheet spriteSheet;
    LevelRenderer renderer{currentLevel};
};
