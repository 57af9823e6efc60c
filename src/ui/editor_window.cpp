#include "editor_window.h"

#include "block_clipboard.h"
#include "block_picture.h"
#include "dialogs.h"
#include "editor_look.h"
#include "editor_texts.h"
#include "file_names.h"
#include "level_document.h"
#include "level_menu.h"
#include "map_canvas.h"
#include "map_geometry.h"
#include "map_viewport.h"
#include "minimap_canvas.h"
#include "minimap_view.h"
#include "recent_files.h"
#include "recovery_keeper.h"
#include "recovery_prompts.h"
#include "tile_codes.h"
#include "tool_strip.h"
#include "zoomed_tiles.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

#include <sys/stat.h>

#include <algorithm>
#include <future>

namespace {
constexpr float ShrunkenMinimapColumnWidth = 20 * MinimapCellSize;
const QString Title = QStringLiteral("VARNOK LEVEL EDITOR");

// A side New can make: a whole number from 3 (room for the frame) to the largest side.
std::optional<int> sideFromField(const QString& text) {
    bool ok = false;
    const int side = text.trimmed().toInt(&ok, 10);
    if (!ok || side < 3 || side > MaxLevelSide) return std::nullopt;
    return side;
}
}  // namespace

EditorWindow::EditorWindow(LevelDocument& document, Dialogs& dialogs)
    : document(document), dialogs(dialogs) {
    setFont(sansSerif(8));
    defaultLevelFile =
        QDir::cleanPath(QFileInfo(document.levelFile()).absoluteDir().filePath(LevelFileName));
    showLevelFile();
    QIcon icon;
    icon.addFile(QStringLiteral(":/icon/icon32.png"));
    icon.addFile(QStringLiteral(":/icon/icon16.png"));
    setWindowIcon(icon);
    setColour(this, QPalette::Window, QColor(192, 192, 192));
    setAutoFillBackground(true);
    resize(896, 641);

    helpButton = new QPushButton(QStringLiteral("???"), this);
    helpButton->setObjectName(QStringLiteral("helpButton"));
    helpButton->setGeometry(0, 0, 46, 17);
    helpButton->setFont(boldSansSerif(7.8));
    toolStrip = new ToolStrip(this);
    levelMenu = new LevelMenu(this);
    minimapView = new MinimapView(this, document.minimap());
    minimapView->setPlacement({8, 24, 144.8f, 88.8f});
    mapViewport = new MapViewport(this, document);
    mouseHintLabel = new QLabel(QStringLiteral("Levým tl. myši kreslíte, pravým hýbete"), this);
    mouseHintLabel->setObjectName(QStringLiteral("mouseHintLabel"));
    mouseHintLabel->setGeometry(48, 0, 193, 17);
    shrinkToFitWhenDrawn(mouseHintLabel);

    connect(helpButton, &QPushButton::clicked, this, &EditorWindow::showHelp);
    connect(levelMenu, &LevelMenu::newRequested, this, &EditorWindow::newLevel);
    connect(levelMenu, &LevelMenu::openRequested, this, &EditorWindow::openLevel);
    connect(levelMenu, &LevelMenu::saveRequested, this, &EditorWindow::saveLevel);
    connect(toolStrip, &ToolStrip::toolSelected, this, &EditorWindow::selectTool);
    connect(minimapView, &MinimapView::mapPointPressed, mapViewport, &MapViewport::minimapPressed);
    connect(minimapView, &MinimapView::mapPointDragged, mapViewport, &MapViewport::minimapDragged);
    connect(minimapView, &MouseSurface::released, mapViewport, &MapViewport::mapReleased);
    connect(mapViewport, &MapViewport::viewMoved, this, &EditorWindow::updateMinimapViewFrame);
    connect(mapViewport, &MapViewport::selectionChanged, minimapView, &MinimapView::showSelection);
    connect(&document, &LevelDocument::cellsChanged, minimapView, &MinimapView::showChangedCells);
    connect(&document, &LevelDocument::levelFileWarning, this,
            [this](const QString& warning) { this->dialogs.error(warning); });
    connect(&document, &LevelDocument::redrawStarting, this, &EditorWindow::showRedrawStarting);
    connect(&document, &LevelDocument::levelReplaced, this, &EditorWindow::showReplacedLevel);
    connect(&document, &LevelDocument::levelFileChanged, this, &EditorWindow::showLevelFile);
    addKeys();
}

// Window-wide keys, each running its button's flow. A size field with the focus keeps its own
// undo and redo while it has typing to take back; after that they reach the level's history.
void EditorWindow::addKeys() {
    const auto addKey = [this](const QList<QKeySequence>& keys, auto run) {
        auto* action = new QAction(this);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WindowShortcut);
        addAction(action);
        connect(action, &QAction::triggered, this, run);
    };
    QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    for (const QKeySequence& usual :
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)}) {
        if (!redoKeys.contains(usual)) redoKeys << usual;
    }
    addKey(QKeySequence::keyBindings(QKeySequence::Undo), [this] { document.undo(); });
    addKey(redoKeys, [this] { document.redo(); });
    addKey({QKeySequence(Qt::CTRL | Qt::Key_S)}, &EditorWindow::saveLevel);
    addKey({QKeySequence(Qt::CTRL | Qt::Key_O)}, &EditorWindow::openLevel);
    addKey({QKeySequence(Qt::CTRL | Qt::Key_N)}, &EditorWindow::newLevel);
    addKey({QKeySequence(Qt::Key_F1)}, &EditorWindow::showHelp);
    addKey({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)}, &EditorWindow::openOtherLevel);
    addKey({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}, &EditorWindow::saveLevelAs);
    const auto zoomKeys = [](QKeySequence::StandardKey standard, QKeySequence own) {
        QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
        if (!keys.contains(own)) keys << own;
        return keys;
    };
    addKey(zoomKeys(QKeySequence::ZoomOut, QKeySequence(Qt::CTRL | Qt::Key_Minus)),
           [this] { mapViewport->zoomBy(1); });
    addKey(zoomKeys(QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)),
           [this] { mapViewport->zoomBy(-1); });
    addKey({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { mapViewport->zoomToFullSize(); });
    addKey({QKeySequence(Qt::CTRL | Qt::Key_9)}, [this] { mapViewport->zoomToWholeLevel(); });
    // Shift is usually still held while a rectangle is dragged.
    addKey({QKeySequence(Qt::Key_Escape), QKeySequence(Qt::SHIFT | Qt::Key_Escape)},
           [this] { mapViewport->cancel(); });
    addKey(QKeySequence::keyBindings(QKeySequence::SelectAll),
           [this] { mapViewport->selectAll(); });
    addKey(QKeySequence::keyBindings(QKeySequence::Copy), &EditorWindow::copySelection);
    addKey(QKeySequence::keyBindings(QKeySequence::Cut), &EditorWindow::cutSelection);
    addKey({QKeySequence(Qt::Key_Delete)}, &EditorWindow::deleteSelection);
    addKey(QKeySequence::keyBindings(QKeySequence::Paste), &EditorWindow::pasteBlock);
}

EditorWindow::~EditorWindow() {
    showBusy(false);
}

bool EditorWindow::startUp(std::future<PreparedLevel> preparing) {
    selectTool(WallToolCode);
    if (!document.loadSpriteSheet())
        dialogs.error(EditorTexts::unreadableSheet(SpriteSheetFileName));
    show();
    // The level file is read and drawn on a thread of its own, under the loading indication.
    showLoading();
    if (!preparing.valid()) preparing = document.prepareOpen();
    PreparedLevel prepared = preparing.get();
    // The read is over: a box about the file comes with the normal pointer, and the redraw
    // shows its own loading indication.
    showBusy(false);
    loadLevel(std::nullopt, &prepared);
    showLevelFile();
    showHelp();
    return !recovery || recovery->askAtStartUp(shownView());
}

void EditorWindow::keepRecoveryCopies(RecoveryKeeper& keeper) {
    recovery = std::make_unique<RecoveryPrompts>(document, keeper, dialogs);
    connect(&keeper, &RecoveryKeeper::copyFailed, this,
            [this](const QString& reason) { recovery->tellCopyFailed(reason); });
}

// At start-up the replaced level is no step of the history.
void EditorWindow::loadLevel(std::optional<LevelView> shownBefore, PreparedLevel* prepared) {
    const LevelReadResult read =
        prepared ? document.open(std::move(*prepared), shownBefore) : document.open(shownBefore);
    if (read.ok()) return;
    if (!read.missing || shownBefore) dialogs.error(read.refusal);
    // At start-up the editor goes on with a new level; on Open the level stays.
    if (!shownBefore) makeNewLevel(std::nullopt);
}

void EditorWindow::newLevel() {
    makeNewLevel(shownView());
}

void EditorWindow::makeNewLevel(std::optional<LevelView> shownBefore) {
    const auto width = sideFromField(levelMenu->widthText());
    const auto height = sideFromField(levelMenu->heightText());
    if (!width || !height)
        return dialogs.warning(EditorTexts::badNewSize(MaxLevelSide), EditorTexts::BadSizeTitle);
    document.newLevel(*width, *height, shownBefore);
}

// The level is saved only with the hero's start on it.
bool EditorWindow::heroPlacedOrTold() {
    if (containsHero(document.level())) return true;
    dialogs.warning(EditorTexts::NoHero, EditorTexts::NoHeroTitle);
    return false;
}

void EditorWindow::saveLevel() {
    if (!dialogs.question(EditorTexts::SaveQuestion, EditorTexts::SaveTitle)) return;
    if (!heroPlacedOrTold()) return;
    if (recovery && !recovery->mayWrite()) return;
    if (const LevelWriteResult written = document.save(); !written.ok())
        dialogs.error(written.failure);
}

void EditorWindow::openLevel() {
    if (!dialogs.question(EditorTexts::OpenQuestion, EditorTexts::OpenTitle)) return;
    loadLevel(shownView());
}

// Another level file: no question first, since the dialog can be cancelled and the open
// undone. A refused file changes nothing.
void EditorWindow::openOtherLevel() {
    const QString chosen = dialogs.levelFileToOpen(levelFolder(), recentLevelFiles());
    if (chosen.isEmpty()) return;
    bool sheetUsable = true;
    const LevelReadResult read = document.openOther(chosen, shownView(), sheetUsable);
    if (!read.ok()) return dialogs.error(read.refusal);
    if (!sheetUsable) dialogs.error(EditorTexts::unreadableSheet(SpriteSheetFileName));
}

// Save under another name: the question only when that file exists, then the hero, as Save.
void EditorWindow::saveLevelAs() {
    QString chosen = dialogs.levelFileToSave(levelFolder(), recentLevelFiles());
    if (chosen.isEmpty()) return;
    if (QFileInfo(chosen).suffix().isEmpty()) chosen += QStringLiteral(".VRK");
    struct stat info {};
    if (statusOf(chosen, info) &&
        !dialogs.question(EditorTexts::SaveQuestion, EditorTexts::SaveTitle))
        return;
    if (!heroPlacedOrTold()) return;
    if (const LevelWriteResult written = document.saveAs(chosen); !written.ok())
        dialogs.error(written.failure);
}

QString EditorWindow::levelFolder() const {
    return QFileInfo(document.levelFile()).absolutePath();
}

QStringList EditorWindow::recentLevelFiles() const {
    return recentFiles ? recentFiles->files() : QStringList();
}

// The title and the files remembered follow the level file.
void EditorWindow::showLevelFile() {
    const QString file = cleanAbsolutePath(document.levelFile());
    setWindowTitle(file == defaultLevelFile
                       ? Title
                       : Title + QStringLiteral(" — ") + shownFileName(QFileInfo(file).fileName()));
    if (recentFiles) recentFiles->add(file);
}

void EditorWindow::copySelection() {
    if (const auto cells = mapViewport->selection()) keepCopiedBlock(document.copyBlock(*cells));
}

void EditorWindow::cutSelection() {
    const auto cells = mapViewport->selection();
    if (!cells) return;
    keepCopiedBlock(document.copyBlock(*cells));
    document.clearCells(*cells);
}

void EditorWindow::deleteSelection() {
    if (const auto cells = mapViewport->selection()) document.clearCells(*cells);
}

void EditorWindow::pasteBlock() {
    if (const auto block = blockToPaste()) mapViewport->carryBlock(*block);
}

// A copied block goes to the system clipboard, for this window, another editor and other
// programs: its text and its picture as the map shows it.
void EditorWindow::keepCopiedBlock(const LevelBlock& block) {
    ZoomedTiles tiles(document.sheet());
    BlockClipboard().put(block, blockPicture(block, document.sheet(), tiles));
}

// The block on the clipboard; anything else is told once and pastes nothing.
std::optional<LevelBlock> EditorWindow::blockToPaste() {
    BlockFromClipboard found = BlockClipboard().take();
    if (found.isBlock()) return std::move(found.block);
    dialogs.warning(found.message(), EditorTexts::PasteTitle);
    return std::nullopt;
}

void EditorWindow::showHelp() {
    dialogs.information(EditorTexts::helpText(), EditorTexts::HelpTitle);
}

LevelView EditorWindow::shownView() const {
    const Placement map = mapViewport->mapPlacement();
    return {QPointF(map.left, map.top), mapViewport->tileSize()};
}

// New and Open: while the level is redrawn, the map is hidden behind the loading label.
void EditorWindow::showLoading() {
    showBusy(true);
    mapViewport->showLoading();
}

void EditorWindow::showRedrawStarting() {
    showLoading();
    sizeMapAndMinimap();
    mapViewport->deferUpdates(true);
    minimapView->deferUpdates(true);
}

// A whole level, from New, Open, undo or redo, already painted: the window shows it as it
// was shown then. A frame drawn anew presses the wall tool, as drawing it by hand would. A
// repaint that a code without a picture stopped leaves the map hidden until a redraw completes.
void EditorWindow::showReplacedLevel(const LevelView& view, bool painted, bool framed) {
    levelMenu->showSizes(document.level().width(), document.level().height());
    sizeMapAndMinimap();
    // A view kept at another zoom step is shown at this one.
    const QPointF position = view.tileSize == mapViewport->tileSize()
                                 ? view.mapPosition
                                 : view.mapPosition * mapViewport->tileSize() / view.tileSize;
    mapViewport->moveMapTo(position);
    if (framed) toolStrip->pressTool(WallToolCode);
    layOutControls();
    if (painted) return showRedrawnLevel();
    showBusy(true);
    mapViewport->showLoading();
    mapViewport->deferUpdates(true);
    showRedrawFailed();
}

void EditorWindow::sizeMapAndMinimap() {
    const int columns = document.level().width();
    const int rows = document.level().height();
    minimapView->setScale(minimapScaleFor(columns, rows));
    const QSizeF minimap = minimapView->shownSize(columns, rows);
    minimapView->setPlacement({10, static_cast<float>(mouseHintLabel->height()),
                               static_cast<float>(minimap.width()),
                               static_cast<float>(minimap.height())});
    mapViewport->fitMapToLevel();
}

void EditorWindow::showRedrawFailed() {
    // What was painted stays; the map stays hidden until a redraw completes.
    minimapView->deferUpdates(false);
    dialogs.error(EditorTexts::RedrawFailed);
}

void EditorWindow::showRedrawnLevel() {
    mapViewport->deferUpdates(false);
    minimapView->deferUpdates(false);
    showBusy(false);
    mapViewport->showMap();
}

void EditorWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutControls();
}

// The left column is as wide as the minimap; the menu sits at the bottom, the palette
// between the two; the map viewport takes the rest. A move that would give a negative size
// is skipped and the others still run.
void EditorWindow::layOutControls() {
    const auto clientWidth = static_cast<float>(width());
    const auto clientHeight = static_cast<float>(height());
    const Placement minimap = minimapView->placement();
    // A shrunken minimap of a long, narrow level would leave no room for the menu's buttons:
    // the column keeps at least the width of a 20-column level's.
    const float column = minimapView->scale().isFull()
                             ? minimap.width
                             : std::max(minimap.width, ShrunkenMinimapColumnWidth);
    const float menuHeight = levelMenu->placement().height;
    levelMenu->setPlacement({10, clientHeight - menuHeight - 10, column, menuHeight});
    toolStrip->moveViewport({10, minimap.top + minimap.height + 10, column,
                             levelMenu->placement().top - minimap.height - minimap.top - 20});
    mapViewport->setPlacement(
        {column + 20, minimap.top, clientWidth - column - 30, clientHeight - minimap.top - 10});
    updateMinimapViewFrame();
}

void EditorWindow::updateMinimapViewFrame() {
    const Placement map = mapViewport->mapPlacement();
    const Placement view = mapViewport->placement();
    minimapView->showViewFrame(
        viewFrameFor(map.left, map.top, view.width, view.height, mapViewport->tileSize()));
}

void EditorWindow::selectTool(int code) {
    tool = code;
    mapViewport->setTool(code);
}

void EditorWindow::showBusy(bool shown) {
    // The override cursor is a stack: keep exactly one entry while the hourglass shows.
    if (shown && !busy) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!shown && busy) QApplication::restoreOverrideCursor();
    busy = shown;
}
