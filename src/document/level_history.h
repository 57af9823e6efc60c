#pragma once

#include "history_step.h"

#include <cstddef>
#include <deque>
#include <memory>

// The most memory the history holds; beyond it the oldest steps go first. What steps of each
// kind keep is measured by the undo benchmark (bench/bench_undo.cpp).
inline constexpr std::size_t HistoryByteLimit = std::size_t(512) << 20;

// The steps that can be undone, oldest first, then those that can be done again. It holds at
// most its limit of memory: beyond it the steps farthest from the current one go, the oldest
// done ones first, then the last of those that could be done again, but never the next one to
// redo. Steps are kept in a plain list rather than a QUndoStack, which can drop old steps only
// by a count fixed while it is empty, never by their size.
class LevelHistory {
  public:
    explicit LevelHistory(std::size_t limit = HistoryByteLimit) : limit(limit) {}

    // A step whose edit is done: the steps that could be done again go.
    void push(std::unique_ptr<HistoryStep> step);
    // False when there was nothing to undo or redo.
    bool undo();
    bool redo();
    void clear();

    bool canUndo() const { return current > 0; }
    bool canRedo() const { return current < steps.size(); }
    int count() const { return static_cast<int>(steps.size()); }
    int index() const { return static_cast<int>(current); }  // the steps done
    std::size_t bytes() const { return keptBytes; }
    void setLimit(std::size_t bytes);

  private:
    void dropFarthestSteps();

    std::deque<std::unique_ptr<HistoryStep>> steps;
    std::size_t current = 0;
    std::size_t keptBytes = 0;
    std::size_t limit;
};
