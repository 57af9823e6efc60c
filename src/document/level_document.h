#pragma once

#include "level.h"
#include "level_file.h"
#include "level_renderer.h"
#include "level_snapshot.h"
#include "sprite_sheet.h"

#include <functional>

#include <QDir>
#include <QObject>
#include <QString>
#include <QUndoStack>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

class HistoryStep;
struct ShownLevel;
struct StrokeRecord;

// The most memory the history holds; beyond it the oldest steps go first. What steps of each
// kind keep is measured by the undo benchmark (bench/bench_undo.cpp).
inline constexpr std::size_t HistoryByteLimit = std::size_t(512) << 20;

// The level being edited and everything that belongs to it: the grid, the sprite sheet, the
// canvases that show them and the files they come from and go to. Every edit of a cell goes
// through here, and so does the history that takes edits back. It reports through its results
// and signals and never opens a window.
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
    const RandomGenerator& wallGenerator() const { return renderer.random(); }

    // Loads the user's sprite sheet, or the built-in one when there is none. False when the
    // user's sheet cannot be used (the built-in one is used then).
    [[nodiscard]] bool loadSpriteSheet();

    // Replaces the level by one of these sizes, all floor, without a hero.
    void newLevel(int width, int height);
    // Reads the level file; a refused file leaves the level as it was.
    [[nodiscard]] LevelReadResult open();
    // Makes the last New or Open, once redrawn, a step of the history, with what the window
    // showed before it and shows now. Without it (at start-up) the replacement is no step.
    void recordReplacement(const LevelView& shownBefore, const LevelView& shownNow);
    // Writes the level file; a failed write leaves the old file as it was.
    [[nodiscard]] LevelWriteResult save() const;

    // The whole-level redraw: the grid onto the canvases (false when a code without a
    // picture stopped it), then the wall frame drawn with `tool`.
    [[nodiscard]] bool repaintGrid();
    void drawFrame(int tool);

    // Applies a palette tool to a cell and re-joins the walls around it; inside a stroke, the
    // cells written become part of its step.
    void applyTool(int x, int y, int tool);

    // A stroke runs from the left button's press to its release; its first write makes it a
    // step, so a stroke that writes nothing leaves none.
    void beginStroke();
    void endStroke();
    // Take back the last step and do it again: the level, its canvases and its hero come back
    // exactly; the wall generator goes on where it was.
    void undo();
    void redo();
    const QUndoStack& history() const { return steps; }
    std::size_t historyBytes() const { return keptBytes; }
    void setHistoryLimit(std::size_t bytes) { historyLimit = bytes; }

  signals:
    // After every undo and redo.
    void steppedThroughHistory();
    // An undo or redo brought back a whole level, shown with `view`; `painted` is false when
    // a code without a picture stopped its repaint.
    void levelReplaced(const LevelView& view, bool painted);

  private:
    void replaceLevel(Level next);
    void push(std::unique_ptr<HistoryStep> step);
    void dropOldestSteps();
    bool strokeOnTop() const;
    void showKeptLevel(const ShownLevel& shown);
    void stepThroughHistory(const std::function<void()>& step);
    HistoryStep* stepAt(int index) const;

    QString levelPath;
    QString sheetPath;
    Level currentLevel;
    SpriteSheet spriteSheet;
    LevelRenderer renderer{currentLevel};

    std::optional<LevelSnapshot> replacedLevel;  // the level before the last New or Open
    bool strokeOpen = false;
    std::shared_ptr<StrokeRecord> openStroke;  // the open stroke's record since its first write
    std::optional<std::pair<LevelView, bool>> shownByStep;  // told once the step is over
    std::size_t historyLimit = HistoryByteLimit;
    std::size_t keptBytes = 0;
    QUndoStack steps;
};
