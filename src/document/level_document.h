#pragma once

#include "level.h"
#include "level_block.h"
#include "level_file.h"
#include "level_history.h"
#include "level_renderer.h"
#include "level_snapshot.h"
#include "prepared_level.h"
#include "sprite_sheet.h"
#include "switch_level_file.h"

#include <QDir>
#include <QObject>
#include <QRect>
#include <QRegion>
#include <QString>

#include <climits>
#include <cstddef>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

struct ShownLevel;
struct CellEditRecord;
class CellRegion;

// The level being edited and everything that belongs to it: the grid, the sprite sheet, the
// canvases that show them, the files they come from and go to, and the history that takes
// edits back. Every change of the level is a call here; views read the canvases and learn of
// changes through the signals. It never opens a window.
class LevelDocument : public QObject {
    Q_OBJECT

  public:
    // Works with the level file and the sprite sheet at these paths.
    LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent = nullptr);
    // Works in `folder`, with level99.VRK and EditPic.jpg in it.
    explicit LevelDocument(const QDir& folder, QObject* parent = nullptr);
    ~LevelDocument() override;

    const Level& level() const { return currentLevel; }
    const SpriteSheet& sheet() const { return spriteSheet; }
    const MapCanvas& map() const { return renderer.map(); }
    const MinimapCanvas& minimap() const { return renderer.minimap(); }
    const QString& levelFile() const { return levelPath; }
    const RandomGenerator& wallGenerator() const { return renderer.random(); }
    const LevelHistory& history() const { return steps; }

    // Loads the user's sprite sheet, or the built-in one when there is none. False when the
    // user's sheet cannot be used (the built-in one is used then).
    [[nodiscard]] bool loadSpriteSheet();

    // New and Open replace the level and redraw it whole: the grid, then the wall frame one
    // cell inside the edge, unless a code without a picture stops the repaint. Given what the
    // window showed before, the replacement becomes a step of the history (at start-up it is
    // none). New makes a level of these sizes, all floor, without a hero.
    void newLevel(int width, int height, std::optional<LevelView> shownBefore = std::nullopt);
    // Open reads the level file; a refused file leaves the level as it was.
    [[nodiscard]] LevelReadResult open(std::optional<LevelView> shownBefore = std::nullopt);
    // Open in two halves, so that other work can run meanwhile: the level file is read and
    // drawn on a thread of its own, from a copy of what the drawing starts from; open(prepared)
    // then shows it exactly as open() would have. When anything was drawn in between, it is
    // drawn again there.
    [[nodiscard]] std::future<PreparedLevel> prepareOpen() const;
    [[nodiscard]] LevelReadResult open(PreparedLevel prepared,
                                       std::optional<LevelView> shownBefore = std::nullopt);
    // A level kept elsewhere (a recovery copy) replaces this one as Open's would, one step of
    // the history, but exactly as kept: its frame is not drawn anew.
    void restoreLevel(Level kept, const LevelView& shownBefore);
    // Writes the level file; a failed write leaves the old file as it was.
    [[nodiscard]] LevelWriteResult save();
    // Opens another level file, read as open() reads it; once read, it is the level file of
    // every later Open and Save, and the sprite sheet beside it is used (the built-in one when
    // there is none; `sheetUsable` false when the one there cannot be used). A refused file
    // changes nothing. One step of the history: undone, the earlier file comes back with its
    // level.
    [[nodiscard]] LevelReadResult openOther(const QString& path, const LevelView& shownBefore,
                                            bool& sheetUsable);
    // Writes the level to `path`, which becomes the level file once written; a failed write
    // changes neither file.
    [[nodiscard]] LevelWriteResult saveAs(const QString& path);

    // Applies a palette tool to a cell and re-joins the walls around it; inside a stroke, the
    // cells written become part of its step.
    void applyTool(int x, int y, int tool);
    // A stroke runs from the left button's press to its release and becomes one step when it
    // ends, or earlier when an undo, a redo, New or Open comes first; the writes after that
    // make a step of their own. A stroke that writes nothing leaves none.
    void beginStroke();
    void endStroke();
    // Area edits, one step each: the region is computed on the grid first, then each of its
    // cells written once, the walls next to it re-joined. A rectangle from `pressCell` to
    // `releaseCell`, inside the frame, takes the tool in every cell, or as many whole room
    // blocks as fit, laid from the press corner; the hero goes to the release cell.
    void fillRectangle(QPoint pressCell, QPoint releaseCell, int tool);
    // The cells connected to `cell` that hold the same thing (any wall piece counting as one)
    // take the tool; a room or the hero is laid at `cell` alone, as a click lays it.
    void floodFill(QPoint cell, int tool);
    // Blocks, for copy, cut, delete and paste. The codes of these cells as they are (no edit).
    LevelBlock copyBlock(const QRect& cells) const;
    // Floor in these cells inside the frame, the walls round them re-joined: one step. Cut is
    // a copy, then this.
    void clearCells(const QRect& cells);
    // Lays a block with its top-left cell at `at`, cut at the frame, as one step: its codes
    // kept, the walls on its edge and round it re-joined, a hero in it the level's one hero.
    void placeBlock(const LevelBlock& block, QPoint at);
    // Take back the last step and do it again: the level, its canvases and its hero come back
    // exactly; the wall generator goes on where it was.
    void undo();
    void redo();
    void setHistoryLimit(std::size_t bytes) { steps.setLimit(bytes); }

  signals:
    // Cells whose map pictures or minimap dots changed (the minimap's margin included), told
    // once for each call that changed them: the cells themselves while they are few (a cell
    // and the walls re-joined round it), else the rectangle round them.
    void cellsChanged(const QRegion& cells);
    // The level file that Open read gave this warning; the redraw comes next.
    void levelFileWarning(const QString& warning);
    // New or Open has replaced the level, and the long redraw starts.
    void redrawStarting();
    // A whole level replaced the last one, whether by New, Open, undo or redo, and is drawn:
    // shown with `view`; `painted` is false when a code without a picture stopped its repaint;
    // `framed` when the wall frame was drawn anew (New and Open).
    void levelReplaced(const LevelView& view, bool painted, bool framed);
    // After every undo and redo.
    void steppedThroughHistory();
    // The level file is another one now (an absolute path): opened, saved under a new name, or
    // brought back by undo or redo.
    void levelFileChanged(const QString& absolutePath);
    // The level was written to the level file, by Save or Save As.
    void levelSaved();

  private:
    // The level that New or Open brings, redrawn and recorded; with `fileBefore`, the step
    // also takes the level file back to it. A level restored as it was kept gets no new frame.
    // With `prepared`, its drawing is taken where it still fits.
    void replaceLevel(Level next, const std::optional<LevelView>& shownBefore,
                      std::optional<WorkingFile> fileBefore = std::nullopt, bool frameAnew = true,
                      PreparedLevel* prepared = nullptr);
    // The replaced level drawn whole; false when a code without a picture stopped it.
    bool drawReplacedLevel(bool frameAnew, PreparedLevel* prepared);
    WorkingFile workingFile() const { return {levelPath, sheetPath, spriteSheet}; }
    void useWorkingFile(const WorkingFile& file);
    void finishStroke();
    // A record of cell writes about to start, and `write` run with its writes logged there.
    CellEditRecord newRecord() const;
    void logWrites(CellEditRecord& record, const std::function<void()>& write);
    // Runs `write`, recording its writes as one step.
    void recordEdit(const std::function<void()>& write, std::size_t expectedWrites = 0);
    void fillRegion(const CellRegion& region, int tool, QPoint cell);
    // Records an edit of the cells in `area` and the walls round them, told as the rectangle
    // `write` returns.
    void recordAreaEdit(const QRect& area, const std::function<QRect()>& write);
    void showKeptLevel(const ShownLevel& shown);
    void stepThroughHistory(bool (LevelHistory::*step)());
    void listenToCanvases();
    void cellsDrawn(const QRect& cells);
    void tellChangedCells();

    QString levelPath;
    QString sheetPath;
    Level currentLevel;
    SpriteSheet spriteSheet;
    LevelRenderer renderer{currentLevel};

    bool strokeOpen = false;
    std::unique_ptr<CellEditRecord> openStroke;  // the open stroke's writes since its last step
    std::optional<std::pair<LevelView, bool>> shownByStep;  // told once the step is over
    LevelHistory steps;
    // The cells changed since the last cellsChanged: the first few as they came, and the
    // corners of the rectangle round all of them.
    static constexpr std::size_t FewCells = 16;
    std::vector<QRect> changedRects;
    QPoint changedFrom{INT_MAX, INT_MAX};
    QPoint changedTo{INT_MIN, INT_MIN};
};
