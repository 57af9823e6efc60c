#pragma once

#include <cstddef>

// One step of the level's history, made when its edit is already done: the history only ever
// undoes it and does it again.
class HistoryStep {
  public:
    HistoryStep() = default;
    HistoryStep(const HistoryStep&) = delete;
    HistoryStep& operator=(const HistoryStep&) = delete;
    virtual ~HistoryStep() = default;

    virtual void undo() = 0;
    virtual void redo() = 0;
    // Memory the step holds, the history's entry for it included.
    virtual std::size_t bytes() const = 0;
};
