#include "level_document.h"

#include "area_painter.h"
#include "block_copy.h"
#include "block_painter.h"
#include "cell_edit.h"
#include "cell_region.h"
#include "file_names.h"
#include "replace_level.h"
#include "tile_codes.h"
#include "tools.h"

#include <algorithm>
#include <climits>

LevelDocument::LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent)
    : QObject(parent), levelPath(std::move(levelFile)), sheetPath(std::move(spriteSheetFile)) {
    listenToCanvases();
}

// A cell's picture and its dot change together, so the two canvases tell one region.
void LevelDocument::listenToCanvases() {
    renderer.map().setChangeListener([this](const QRect& cells) { cellsDrawn(cells); });
    renderer.minimap().setChangeListener([this](const QRect& cells) { cellsDrawn(cells); });
}

LevelDocument::LevelDocument(const QDir& folder, QObject* parent)
    : LevelDocument(folder.filePath(LevelFileName), folder.filePath(SpriteSheetFileName), parent) {}

LevelDocument::~LevelDocument() = default;

bool LevelDocument::loadSpriteSheet() {
    SpriteSheet::FileState state{};
    spriteSheet = SpriteSheet::fromFileOrBuiltIn(sheetPath, state);
    return state != SpriteSheet::FileState::Unusable;
}

void LevelDocument::newLevel(int width, int height, std::optional<LevelView> shownBefore) {
    Level fresh;
    fresh.reset(width, height);
    replaceLevel(std::move(fresh), shownBefore);
}

LevelReadResult LevelDocument::open(std::optional<LevelView> shownBefore) {
    Level read;
    LevelReadResult result = readLevelFile(read, levelPath);
    if (!result.ok()) return result;
    if (!result.warning.isEmpty()) emit levelFileWarning(result.warning);
    replaceLevel(std::move(read), shownBefore);
    return result;
}

namespace {
// Writes back the blocks taken from `areas` with copyBlock: the level as it was read.
void putBack(Level& level, const std::array<QRect, 4>& areas,
             const std::array<LevelBlock, 4>& blocks) {
    for (std::size_t i = 0; i < areas.size(); ++i) {
        auto codes = blocks[i].codes.begin();
        for (int y = 0; y < blocks[i].height; ++y, codes += blocks[i].width)
            std::copy_n(codes, blocks[i].width, level.row(areas[i].top() + y) + areas[i].left());
    }
}

// Open's reading and drawing, on whatever thread runs it: it uses only its arguments.
PreparedLevel readAndDraw(const QString& path, RandomGenerator generator, QRgb drawingColour) {
    PreparedLevel prepared;
    prepared.generatorStart = generator.state();
    prepared.drawingColourStart = drawingColour;
    auto level = std::make_unique<Level>();
    prepared.read = readLevelFile(*level, path);
    if (!prepared.read.ok()) return prepared;
    prepared.drawing = std::make_unique<LevelRenderer>(*level, drawingColour);
    prepared.drawing->random() = generator;
    prepared.painted = prepared.drawing->repaintGrid();
    if (prepared.painted) {
        const auto reach = LevelRenderer::frameReach(level->width(), level->height());
        for (std::size_t i = 0; i < reach.size(); ++i)
            prepared.underFrame[i] = copyBlock(*level, reach[i]);
        prepared.drawing->drawFrame(WallToolCode);
    }
    prepared.level = std::move(level);
    return prepared;
}
}  // namespace

std::future<PreparedLevel> LevelDocument::prepareOpen() const {
    return std::async(std::launch::async, readAndDraw, levelPath, renderer.random(),
                      renderer.minimap().drawingColour());
}

LevelReadResult LevelDocument::open(PreparedLevel prepared, std::optional<LevelView> shownBefore) {
    if (!prepared.read.ok()) return prepared.read;
    if (!prepared.read.warning.isEmpty()) emit levelFileWarning(prepared.read.warning);
    replaceLevel(std::move(*prepared.level), shownBefore, std::nullopt, true, &prepared);
    return prepared.read;
}

LevelReadResult LevelDocument::openOther(const QString& path, const LevelView& shownBefore,
                                         bool& sheetUsable) {
    sheetUsable = true;
    Level read;
    const QString level = cleanAbsolutePath(path);
    LevelReadResult result = readLevelFile(read, level);
    if (!result.ok()) return result;
    if (!result.warning.isEmpty()) emit levelFileWarning(result.warning);
    WorkingFile before = workingFile();
    levelPath = level;
    sheetPath = spriteSheetBeside(level);
    sheetUsable = loadSpriteSheet();
    replaceLevel(std::move(read), shownBefore, std::move(before));
    emit levelFileChanged(levelPath);
    return result;
}

LevelWriteResult LevelDocument::saveAs(const QString& path) {
    const QString target = cleanAbsolutePath(path);
    LevelWriteResult written = writeLevelFile(currentLevel, target);
    if (written.ok() && target != levelPath) {
        levelPath = target;
        emit levelFileChanged(levelPath);
    }
    if (written.ok()) emit levelSaved();
    return written;
}

void LevelDocument::useWorkingFile(const WorkingFile& file) {
    const bool changed = file.levelPath != levelPath;
    levelPath = file.levelPath;
    sheetPath = file.sheetPath;
    spriteSheet = file.sheet;
    if (changed) emit levelFileChanged(levelPath);
}

void LevelDocument::restoreLevel(Level kept, const LevelView& shownBefore) {
    replaceLevel(std::move(kept), shownBefore, std::nullopt, false);
}

void LevelDocument::replaceLevel(Level next, const std::optional<LevelView>& shownBefore,
                                 std::optional<WorkingFile> fileBefore, bool frameAnew,
                                 PreparedLevel* prepared) {
    finishStroke();
    std::optional<LevelSnapshot> before;
    if (shownBefore) before.emplace(currentLevel, renderer);
    currentLevel = std::move(next);
    renderer.sprites().forgetShownGrid();
    emit redrawStarting();
    const bool painted = drawReplacedLevel(frameAnew, prepared);
    // A new or opened level is shown from its top-left corner.
    const LevelView shownNow{};
    if (before) {
        std::unique_ptr<HistoryStep> step = std::make_unique<ReplaceLevel>(
            [this](const ShownLevel& shown) { showKeptLevel(shown); },
            [this] { return LevelSnapshot(currentLevel, renderer); },
            ShownLevel{std::move(*before), *shownBefore}, shownNow);
        if (fileBefore) {
            step = std::make_unique<SwitchLevelFile>(
                std::move(step), [this](const WorkingFile& file) { useWorkingFile(file); },
                [this] { return workingFile(); }, std::move(*fileBefore));
        }
        steps.push(std::move(step));
    }
    tellChangedCells();
    emit levelReplaced(shownNow, painted, painted && frameAnew);
}

bool LevelDocument::drawReplacedLevel(bool frameAnew, PreparedLevel* prepared) {
    // A prepared drawing fits while the generator and the minimap's drawing colour are as it
    // found them: the canvases' old content does not matter, since every row is drawn whole.
    if (prepared && prepared->drawing && frameAnew &&
        prepared->generatorStart == renderer.random().state() &&
        prepared->drawingColourStart == renderer.minimap().drawingColour()) {
        renderer.swapDrawing(*prepared->drawing);
        cellsDrawn(QRect(0, 0, currentLevel.width() + 1, currentLevel.height() + 1));
        return prepared->painted;
    }
    // Else the level is drawn here, as read: without the frame drawn on it meanwhile.
    if (prepared)
        putBack(currentLevel,
                LevelRenderer::frameReach(currentLevel.width(), currentLevel.height()),
                prepared->underFrame);
    const bool painted = renderer.repaintGrid();
    if (painted && frameAnew) renderer.drawFrame(WallToolCode);
    return painted;
}

LevelWriteResult LevelDocument::save() {
    LevelWriteResult written = writeLevelFile(currentLevel, levelPath);
    if (written.ok()) emit levelSaved();
    return written;
}

void LevelDocument::applyTool(int x, int y, int tool) {
    if (!strokeOpen) {
        renderer.tools().applyTool(x, y, tool);
        return tellChangedCells();
    }
    // Only a stroke's writes are kept: the painter then skips reading every cell twice.
    if (!openStroke) openStroke = std::make_unique<CellEditRecord>(newRecord());
    logWrites(*openStroke, [&] { renderer.tools().applyTool(x, y, tool); });
    tellChangedCells();
}

CellEditRecord LevelDocument::newRecord() const {
    CellEditRecord record;
    record.heroBefore = currentLevel.hero();
    record.drawingBefore = renderer.minimap().drawingColour();
    return record;
}

void LevelDocument::logWrites(CellEditRecord& record, const std::function<void()>& write) {
    renderer.sprites().setWriteLog(&record.writes);
    write();
    renderer.sprites().setWriteLog(nullptr);
    record.heroAfter = currentLevel.hero();
    record.drawingAfter = renderer.minimap().drawingColour();
}

void LevelDocument::fillRectangle(QPoint pressCell, QPoint releaseCell, int tool) {
    const CellRegion region = rectangleRegion(currentLevel, pressCell, releaseCell);
    if (region.isEmpty()) return;
    if (toolKind(tool) != ToolKind::Room) return fillRegion(region, tool, releaseCell);
    AreaPainter area(currentLevel, renderer.sprites(), renderer.tools());
    recordEdit([&] { area.layRooms(region, tool, pressCell); });
}

void LevelDocument::floodFill(QPoint cell, int tool) {
    if (!isInsideFrame(currentLevel, cell.x(), cell.y())) return;
    fillRegion(floodRegion(currentLevel, cell), tool, cell);
}

void LevelDocument::fillRegion(const CellRegion& region, int tool, QPoint cell) {
    AreaPainter area(currentLevel, renderer.sprites(), renderer.tools());
    const ToolKind kind = toolKind(tool);
    if (kind != ToolKind::Wall && kind != ToolKind::SingleCell)
        return recordEdit([&] { area.fill(region, tool, cell); });
    // Only the region and the walls next to it change, each cell written once (the
    // neighbours re-joined at most once each).
    const QRect bounds = region.bounds();
    recordAreaEdit(bounds, [&] {
        area.fill(region, tool, cell);
        return bounds.adjusted(-1, -1, 1, 1);
    });
}

LevelBlock LevelDocument::copyBlock(const QRect& cells) const {
    return ::copyBlock(currentLevel, cells);
}

void LevelDocument::clearCells(const QRect& cells) {
    BlockPainter blocks(currentLevel, renderer.sprites(), renderer.tools());
    const QRect area = cells & cellsInsideFrame(currentLevel);
    if (area.isEmpty()) return;
    recordAreaEdit(area, [&] { return blocks.clear(cells); });
}

void LevelDocument::placeBlock(const LevelBlock& block, QPoint at) {
    BlockPainter blocks(currentLevel, renderer.sprites(), renderer.tools());
    recordAreaEdit(QRect(at, QSize(block.width, block.height)),
                   [&] { return blocks.place(block, at); });
}

// An edit of a rectangle of cells and the walls round it; `write` gives the cells it touched.
// Thousands of cells are told as one rectangle, not one by one.
void LevelDocument::recordAreaEdit(const QRect& area, const std::function<QRect()>& write) {
    renderer.map().setChangeListener({});
    renderer.minimap().setChangeListener({});
    QRect touched;
    const std::optional<QPoint> oldHero = currentLevel.hero();
    // The area, the walls round it and the old hero's cell.
    const auto expected = static_cast<std::size_t>(area.width()) * area.height() +
                          2 * static_cast<std::size_t>(area.width() + area.height()) + 5;
    recordEdit([&] { touched = write(); }, expected);
    listenToCanvases();
    if (!touched.isEmpty()) cellsDrawn(touched);
    // The old hero's cell, which a block with a hero turns to floor, may lie anywhere.
    if (oldHero && currentLevel.hero() != oldHero) cellsDrawn(QRect(*oldHero, QSize(1, 1)));
    tellChangedCells();
}

void LevelDocument::recordEdit(const std::function<void()>& write, std::size_t expectedWrites) {
    finishStroke();
    CellEditRecord record = newRecord();
    record.writes.reserve(expectedWrites);
    logWrites(record, write);
    if (!record.writes.empty())
        steps.push(std::make_unique<CellEdit>(currentLevel, renderer, std::move(record)));
    tellChangedCells();
}

void LevelDocument::beginStroke() {
    finishStroke();
    strokeOpen = true;
}

void LevelDocument::endStroke() {
    finishStroke();
    strokeOpen = false;
}

void LevelDocument::finishStroke() {
    if (openStroke && !openStroke->writes.empty())
        steps.push(std::make_unique<CellEdit>(currentLevel, renderer, std::move(*openStroke)));
    openStroke.reset();
}

void LevelDocument::showKeptLevel(const ShownLevel& shown) {
    const bool painted = shown.snapshot.restore(currentLevel, renderer);
    shownByStep.emplace(shown.view, painted);
}

void LevelDocument::undo() {
    stepThroughHistory(&LevelHistory::undo);
}

void LevelDocument::redo() {
    stepThroughHistory(&LevelHistory::redo);
}

void LevelDocument::stepThroughHistory(bool (LevelHistory::*step)()) {
    finishStroke();
    if (!(steps.*step)()) return;
    emit steppedThroughHistory();
    tellChangedCells();
    if (const auto shown = std::exchange(shownByStep, std::nullopt))
        emit levelReplaced(shown->first, shown->second, false);
}

// A few cells are told one by one, so that a wall and its neighbours repaint five cells, not
// the nine round them; past that, the rectangle round them all. Kept as corners: a QRect
// union for every cell written costs more than the writing.
void LevelDocument::cellsDrawn(const QRect& cells) {
    // The map and the minimap tell each cell in turn.
    if (changedRects.size() <= FewCells && (changedRects.empty() || changedRects.back() != cells))
        changedRects.push_back(cells);
    changedFrom = {std::min(changedFrom.x(), cells.left()), std::min(changedFrom.y(), cells.top())};
    changedTo = {std::max(changedTo.x(), cells.right()), std::max(changedTo.y(), cells.bottom())};
}

void LevelDocument::tellChangedCells() {
    const QRect all(changedFrom, changedTo);
    QRegion cells;
    if (changedRects.size() <= FewCells)
        for (const QRect& changed : changedRects) cells += changed;
    else
        cells = all;
    changedRects.clear();
    changedFrom = {INT_MAX, INT_MAX};
    changedTo = {INT_MIN, INT_MIN};
    if (!all.isEmpty()) emit cellsChanged(cells);
}
