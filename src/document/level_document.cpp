#include "level_document.h"

#include <functional>

#include "paint_stroke.h"
#include "replace_level.h"

#include <QSignalBlocker>

LevelDocument::LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent)
    : QObject(parent), levelPath(std::move(levelFile)), sheetPath(std::move(spriteSheetFile)) {}

LevelDocument::LevelDocument(const QDir& folder, QObject* parent)
    : LevelDocument(folder.filePath(LevelFileName), folder.filePath(SpriteSheetFileName), parent) {}

bool LevelDocument::loadSpriteSheet() {
    SpriteSheet::FileState state{};
    spriteSheet = SpriteSheet::fromFileOrBuiltIn(sheetPath, state);
    return state != SpriteSheet::FileState::Unusable;
}

void LevelDocument::newLevel(int width, int height) {
    Level fresh;
    fresh.reset(width, height);
    replaceLevel(std::move(fresh));
}

LevelReadResult LevelDocument::open() {
    Level read;
    LevelReadResult result = readLevelFile(read, levelPath);
    if (result.ok()) replaceLevel(std::move(read));
    return result;
}

void LevelDocument::replaceLevel(Level next) {
    replacedLevel.emplace(currentLevel, renderer);
    currentLevel = std::move(next);
    renderer.sprites().forgetShownGrid();
}

LevelWriteResult LevelDocument::save() const {
    return writeLevelFile(currentLevel, levelPath);
}

bool LevelDocument::repaintGrid() {
    return renderer.repaintGrid();
}

void LevelDocument::drawFrame(int tool) {
    renderer.drawFrame(tool);
}

void LevelDocument::applyTool(int x, int y, int tool) {
    if (!strokeOpen) return renderer.tools().applyTool(x, y, tool);
    // A step undone or pushed over the stroke since its last write ends its step there.
    if (openStroke && !strokeOnTop()) openStroke.reset();
    const bool first = !openStroke;
    if (first) {
        openStroke = std::make_shared<StrokeRecord>();
        openStroke->heroBefore = currentLevel.hero();
        openStroke->drawingBefore = renderer.minimap().drawingColour();
    }
    const std::size_t capacity = openStroke->writes.capacity();
    // Only a stroke's writes are told: the painter then skips reading every cell twice.
    renderer.sprites().setWriteListener(
        [record = openStroke.get()](const CellWrite& write) { record->writes.push_back(write); });
    renderer.tools().applyTool(x, y, tool);
    renderer.sprites().setWriteListener({});
    openStroke->heroAfter = currentLevel.hero();
    openStroke->drawingAfter = renderer.minimap().drawingColour();
    if (!first)
        keptBytes += (openStroke->writes.capacity() - capacity) * sizeof(CellWrite);
    else if (openStroke->writes.empty())
        openStroke.reset();
    else
        push(std::make_unique<PaintStroke>(currentLevel, renderer, openStroke));
}

void LevelDocument::beginStroke() {
    strokeOpen = true;
    openStroke.reset();
}

void LevelDocument::endStroke() {
    strokeOpen = false;
    if (openStroke && strokeOnTop()) {
        // The room the record grew into beyond its writes goes back.
        const std::size_t reserved = openStroke->writes.capacity();
        openStroke->writes.shrink_to_fit();
        keptBytes -= (reserved - openStroke->writes.capacity()) * sizeof(CellWrite);
    }
    openStroke.reset();
    dropOldestSteps();  // the stroke has grown since it was pushed
}

bool LevelDocument::strokeOnTop() const {
    const auto* top = dynamic_cast<const PaintStroke*>(steps.command(steps.index() - 1));
    return top && top->keeps() == openStroke.get();
}

void LevelDocument::recordReplacement(const LevelView& shownBefore, const LevelView& shownNow) {
    if (!replacedLevel) return;
    ShownLevel before{std::move(*replacedLevel), shownBefore};
    replacedLevel.reset();
    push(std::make_unique<ReplaceLevel>([this](const ShownLevel& shown) { showKeptLevel(shown); },
                                        [this] { return LevelSnapshot(currentLevel, renderer); },
                                        std::move(before), shownNow));
}

void LevelDocument::showKeptLevel(const ShownLevel& shown) {
    const bool painted = shown.snapshot.restore(currentLevel, renderer);
    shownByStep.emplace(shown.view, painted);
}

void LevelDocument::undo() {
    if (!steps.canUndo()) return;
    // A New or Open keeps the level it left at its first undo, so its size grows then.
    const HistoryStep* undone = stepAt(steps.index() - 1);
    const std::size_t bytes = undone->bytes();
    stepThroughHistory([&] {
        steps.undo();
        keptBytes = keptBytes - bytes + undone->bytes();
        dropOldestSteps();
    });
}

void LevelDocument::redo() {
    if (steps.canRedo()) stepThroughHistory([this] { steps.redo(); });
}

void LevelDocument::stepThroughHistory(const std::function<void()>& step) {
    step();
    emit steppedThroughHistory();
    if (const auto shown = std::exchange(shownByStep, std::nullopt))
        emit levelReplaced(shown->first, shown->second);
}

HistoryStep* LevelDocument::stepAt(int index) const {
    return static_cast<HistoryStep*>(const_cast<QUndoCommand*>(steps.command(index)));
}

void LevelDocument::push(std::unique_ptr<HistoryStep> step) {
    for (int i = steps.index(); i < steps.count(); ++i) keptBytes -= stepAt(i)->bytes();
    keptBytes += step->bytes();
    steps.push(step.release());
    dropOldestSteps();
}

// QUndoStack drops its oldest steps only by a count set while it is empty: over the limit, the
// stack is rebuilt from copies of the steps that fit in seven eighths of it, so that this happens
// once for every eighth of the limit. The steps farthest from the current one go: the oldest
// done ones first, then the last of those that could be redone.
void LevelDocument::dropOldestSteps() {
    if (keptBytes <= historyLimit) return;
    const int current = steps.index();
    std::size_t bytes = 0;
    for (int i = 0; i < steps.count(); ++i) bytes += stepAt(i)->bytes();
    int first = 0;
    int end = steps.count();
    const std::size_t target = historyLimit / 8 * 7;
    while (bytes > target && first < current) bytes -= stepAt(first++)->bytes();
    while (bytes > target && end > current && end - first > 1) bytes -= stepAt(--end)->bytes();
    std::vector<std::unique_ptr<HistoryStep>> kept;
    for (int i = first; i < end; ++i) kept.push_back(stepAt(i)->copy());
    const QSignalBlocker quiet(&steps);
    steps.clear();
    for (auto& step : kept) {
        // Pushed as done; those that were undone are then undone again without their edit.
        if (steps.count() >= current - first) step->skipNextUndo();
        steps.push(step.release());
    }
    steps.setIndex(current - first);
    keptBytes = bytes;
}
