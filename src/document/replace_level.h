#pragma once

#include "history_step.h"
#include "level_snapshot.h"

#include <functional>
#include <optional>

// A level and what the window showed with it.
struct ShownLevel {
    LevelSnapshot snapshot;
    LevelView view;
};

// New or Open as a step: the level before it, and the level it left once redrawn, its frame
// included, so that neither undo nor redo draws a frame or a new wall piece.
class ReplaceLevel : public HistoryStep {
  public:
    // `show` brings a kept level back into the document; `keep` takes the document's level
    // as it is now.
    using Show = std::function<void(const ShownLevel&)>;
    using Keep = std::function<LevelSnapshot()>;

    ReplaceLevel(Show show, Keep keep, ShownLevel before, LevelView afterView);

    std::size_t bytes() const override;
    std::unique_ptr<HistoryStep> copy() const override;

  protected:
    void undoEdit() override;
    void redoEdit() override { show(*levels->after); }

  private:
    struct Levels {
        ShownLevel before;
        LevelView afterView;
        std::optional<ShownLevel> after;  // kept at the first undo
    };
    ReplaceLevel(Show show, Keep keep, std::shared_ptr<Levels> levels)
        : show(std::move(show)), keep(std::move(keep)), levels(std::move(levels)) {}

    Show show;
    Keep keep;
    std::shared_ptr<Levels> levels;
};
