#pragma once

#include <QUndoCommand>

#include <cstddef>
#include <memory>
#include <utility>

// One step of the level's history. A step is made when its edit is already done, so the redo
// QUndoStack::push runs at once is skipped. Copies share what a step keeps, so the history can
// drop steps by rebuilding its stack without copying a level; a copy of a step that was undone
// also skips the undo that puts it back behind the stack's index.
class HistoryStep : public QUndoCommand {
  public:
    void redo() final {
        if (!std::exchange(done, false)) redoEdit();
    }
    void undo() final {
        if (!std::exchange(undone, false)) undoEdit();
    }
    void skipNextUndo() { undone = true; }
    // Memory the step holds, Qt's share included.
    virtual std::size_t bytes() const = 0;
    // The same step, sharing what it keeps, as already done.
    virtual std::unique_ptr<HistoryStep> copy() const = 0;

  protected:
    virtual void redoEdit() = 0;
    virtual void undoEdit() = 0;
    // What Qt holds for a command besides our members: its private part and the stack's entry.
    static constexpr std::size_t QtShare = 160;

  private:
    bool done = true;
    bool undone = false;
};
