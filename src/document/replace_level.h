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

    void undo() override;
    void redo() override { show(*after); }
    std::size_t bytes() const override;

  private:
    Show show;
    Keep keep;
    ShownLevel before;
    LevelView afterView;
    std::optional<ShownLevel> after;  // kept at the first undo
};
