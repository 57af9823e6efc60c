#include "level_history.h"

void LevelHistory::push(std::unique_ptr<HistoryStep> step) {
    while (steps.size() > current) {
        keptBytes -= steps.back()->bytes();
        steps.pop_back();
    }
    keptBytes += step->bytes();
    steps.push_back(std::move(step));
    ++current;
    dropFarthestSteps();
}

bool LevelHistory::undo() {
    if (!canUndo()) return false;
    // A step may keep more once undone (New and Open keep the level they left then).
    HistoryStep& step = *steps[--current];
    keptBytes -= step.bytes();
    step.undo();
    keptBytes += step.bytes();
    dropFarthestSteps();
    return true;
}

bool LevelHistory::redo() {
    if (!canRedo()) return false;
    steps[current++]->redo();
    return true;
}

void LevelHistory::clear() {
    steps.clear();
    current = 0;
    keptBytes = 0;
}

void LevelHistory::setLimit(std::size_t bytes) {
    limit = bytes;
    dropFarthestSteps();
}

void LevelHistory::dropFarthestSteps() {
    while (keptBytes > limit && !steps.empty()) {
        if (current > 0) {
            keptBytes -= steps.front()->bytes();
            steps.pop_front();
            --current;
        } else if (steps.size() > 1) {
            keptBytes -= steps.back()->bytes();
            steps.pop_back();
        } else {
            break;
        }
    }
}
