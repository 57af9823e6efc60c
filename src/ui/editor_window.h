#pragma once

#include "level_block.h"
#include "level_snapshot.h"
#include "prepared_level.h"

#include <QWidget>

#include <future>
#include <memory>
#include <optional>

class Dialogs;
class LevelDocument;
class LevelMenu;
class MapViewport;
class MinimapView;
class QLabel;
class QPushButton;
class RecentFiles;
class RecoveryKeeper;
class RecoveryPrompts;
class ToolStrip;

// The editor's one window: the help button and the mouse hint along the top, the minimap,
// the palette and the level menu in the left column, the map viewport beside them. Its keys:
// undo and redo, Ctrl+S, Ctrl+O and Ctrl+N for the three menu buttons, F1 for the help,
// Ctrl+Shift+O and Ctrl+Shift+S to open another level file and to save under another name.
// The title names the level file unless it is level99.VRK in the folder of the first one.
class EditorWindow : public QWidget {
    Q_OBJECT

  public:
    EditorWindow(LevelDocument& document, Dialogs& dialogs);
    ~EditorWindow() override;

    // Start-up: the wall tool, the sprite sheet, the window, the level, then the help box, and
    // with recovery copies kept their questions. False when the user chose to end the editor.
    // The level file is read and drawn by `preparing`, when the caller started it early
    // (LevelDocument::prepareOpen), else started here.
    bool startUp(std::future<PreparedLevel> preparing = {});
    // Asks the questions of `keeper`'s copies and lock, at start-up and before Save.
    void keepRecoveryCopies(RecoveryKeeper& keeper);
    void newLevel();
    void saveLevel();
    void openLevel();
    void showHelp();
    void openOtherLevel();
    void saveLevelAs();
    int selectedTool() const { return tool; }
    // Where the level files worked on are remembered and offered; none by default.
    void setRecentFiles(RecentFiles* files) { recentFiles = files; }

    // Blocks: copy, cut and delete act on the map's selection, paste picks up the block to
    // carry over the map.
    void copySelection();
    void cutSelection();
    void deleteSelection();
    void pasteBlock();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool heroPlacedOrTold();
    // The one place a copied block goes, and the one place paste takes it from: the system
    // clipboard.
    void keepCopiedBlock(const LevelBlock& block);
    std::optional<LevelBlock> blockToPaste();
    // The level file, read here or, given `prepared`, already read and drawn.
    void loadLevel(std::optional<LevelView> shownBefore, PreparedLevel* prepared = nullptr);
    void makeNewLevel(std::optional<LevelView> shownBefore);
    void addKeys();
    LevelView shownView() const;
    // The hourglass and the loading label, while a level is read or drawn.
    void showLoading();
    void showRedrawStarting();
    void showReplacedLevel(const LevelView& view, bool painted, bool framed);
    void sizeMapAndMinimap();
    void showRedrawFailed();
    void showRedrawnLevel();
    void layOutControls();
    void updateMinimapViewFrame();
    void selectTool(int code);
    void showBusy(bool busy);
    void showLevelFile();
    QString levelFolder() const;
    QStringList recentLevelFiles() const;

    LevelDocument& document;
    Dialogs& dialogs;
    QPushButton* helpButton;
    ToolStrip* toolStrip;
    LevelMenu* levelMenu;
    MinimapView* minimapView;
    MapViewport* mapViewport;
    QLabel* mouseHintLabel;
    int tool = 0;
    bool busy = false;
    QString defaultLevelFile;
    RecentFiles* recentFiles = nullptr;
    std::unique_ptr<RecoveryPrompts> recovery;
};
