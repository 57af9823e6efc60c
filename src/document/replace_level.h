#pragma once

#include "history_step.h"
#include "level_snapshot.h"

#include <functional>

// A level and what the window showed with it.
struct ShownLevel {
    LevelSnapshot snapshot;
    LevelView view;
};

// New or Open as a step: the level before it, and the level it left once redrawn, its frame
// included, so that neither undo nor redo draws a frame or a new wall piece.
class ReplaceLevel : public HistoryStep {
  public:
    struct Levels {
        ShownLevel before;
        ShownLevel after;
    };
    // `show` brings a kept level back into the document.
    using Show = std::function<void(const ShownLevel&)>;

    ReplaceLevel(Show show, std::shared_ptr<const Levels> levels)
        : show(std::move(show)), levels(std::move(levels)) {}

    void undo() override { show(levels->before); }
    std::size_t bytes() const override;
    std::unique_ptr<HistoryStep> copy() const override;

  protected:
    void redoEdit() override { show(levels->after); }

  private:
    Show show;
    std::shared_ptr<const Levels> levels;
};
