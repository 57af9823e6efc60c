#pragma once

#include <QUndoCommand>

#include <cstddef>
#include <memory>
#include <utility>

// One step of the level's history. A step is made when its edit is already done, so the redo
// QUndoStack::push runs at once is skipped. Copies share what a step keeps, so the history can
// drop its oldest steps by rebuilding its stack without copying a level.
class HistoryStep : public QUndoCommand {
  public:
    void redo() final {
        if (!std::exchange(done, false)) redoEdit();
    }
    // Memory the step holds, Qt's share included.
    virtual std::size_t bytes() const = 0;
    // The same step, sharing what it keeps, as already done.
    virtual std::unique_ptr<HistoryStep> copy() const = 0;

  protected:
    virtual void redoEdit() = 0;
    // What Qt holds for a command besides our members: its private part and the stack's entry.
    static constexpr std::size_t QtShare = 160;

  private:
    bool done = true;
};
