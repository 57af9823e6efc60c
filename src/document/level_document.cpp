#include "level_document.h"

#include "area_painter.h"
#include "cell_edit.h"
#include "cell_region.h"
#include "replace_level.h"
#include "tile_codes.h"
#include "tools.h"

LevelDocument::LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent)
    : QObject(parent), levelPath(std::move(levelFile)), sheetPath(std::move(spriteSheetFile)) {
    // A cell's picture and its dot change together, so the two canvases tell one region.
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

void LevelDocument::replaceLevel(Level next, const std::optional<LevelView>& shownBefore) {
    finishStroke();
    std::optional<LevelSnapshot> before;
    if (shownBefore) before.emplace(currentLevel, renderer);
    currentLevel = std::move(next);
    renderer.sprites().forgetShownGrid();
    emit redrawStarting();
    const bool painted = renderer.repaintGrid();
    if (painted) renderer.drawFrame(WallToolCode);
    // A new or opened level is shown from its top-left corner.
    const LevelView shownNow{};
    if (before) {
        steps.push(std::make_unique<ReplaceLevel>(
            [this](const ShownLevel& shown) { showKeptLevel(shown); },
            [this] { return LevelSnapshot(currentLevel, renderer); },
            ShownLevel{std::move(*before), *shownBefore}, shownNow));
    }
    tellChangedCells();
    emit levelReplaced(shownNow, painted, painted);
}

LevelWriteResult LevelDocument::save() const {
    return writeLevelFile(currentLevel, levelPath);
}

void LevelDocument::applyTool(int x, int y, int tool) {
    if (!strokeOpen) {
        renderer.tools().applyTool(x, y, tool);
        return tellChangedCells();
    }
    if (!openStroke) {
        openStroke = std::make_unique<CellEditRecord>();
        openStroke->heroBefore = currentLevel.hero();
        openStroke->drawingBefore = renderer.minimap().drawingColour();
    }
    // Only a stroke's writes are told: the painter then skips reading every cell twice.
    renderer.sprites().setWriteListener(
        [record = openStroke.get()](const CellWrite& write) { record->writes.push_back(write); });
    renderer.tools().applyTool(x, y, tool);
    renderer.sprites().setWriteListener({});
    openStroke->heroAfter = currentLevel.hero();
    openStroke->drawingAfter = renderer.minimap().drawingColour();
    tellChangedCells();
}

void LevelDocument::fillRectangle(QPoint pressCell, QPoint releaseCell, int tool) {
    const CellRegion region = rectangleRegion(currentLevel, pressCell, releaseCell);
    if (region.isEmpty()) return;
    recordEdit([&] {
        AreaPainter area(currentLevel, renderer.sprites(), renderer.tools());
        if (toolKind(tool) == ToolKind::Room)
            area.layRooms(region, tool, pressCell);
        else
            area.fill(region, tool, releaseCell);
    });
}

void LevelDocument::floodFill(QPoint cell, int tool) {
    if (!isInsideFrame(currentLevel, cell.x(), cell.y())) return;
    const CellRegion region = floodRegion(currentLevel, cell);
    recordEdit([&] {
        AreaPainter(currentLevel, renderer.sprites(), renderer.tools()).fill(region, tool, cell);
    });
}

void LevelDocument::recordEdit(const std::function<void()>& write) {
    finishStroke();
    CellEditRecord record;
    record.heroBefore = currentLevel.hero();
    record.drawingBefore = renderer.minimap().drawingColour();
    renderer.sprites().setWriteListener(
        [&record](const CellWrite& written) { record.writes.push_back(written); });
    write();
    renderer.sprites().setWriteListener({});
    record.heroAfter = currentLevel.hero();
    record.drawingAfter = renderer.minimap().drawingColour();
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

void LevelDocument::cellsDrawn(const QRect& cells) {
    changedCells |= cells;
}

void LevelDocument::tellChangedCells() {
    if (const QRect cells = std::exchange(changedCells, QRect()); !cells.isEmpty())
        emit cellsChanged(cells);
}
