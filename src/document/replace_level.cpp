#include "replace_level.h"

ReplaceLevel::ReplaceLevel(Show show, Keep keep, ShownLevel before, LevelView afterView)
    : ReplaceLevel(std::move(show), std::move(keep),
                   std::make_shared<Levels>(Levels{std::move(before), std::move(afterView), {}})) {}

void ReplaceLevel::undoEdit() {
    // Every later step is undone by now, so the document holds the level exactly as this step
    // left it: New and Open need not pack it, and most of them are never undone.
    if (!levels->after) levels->after = ShownLevel{keep(), levels->afterView};
    show(levels->before);
}

std::size_t ReplaceLevel::bytes() const {
    const std::size_t after = levels->after ? levels->after->snapshot.bytes() : 0;
    return sizeof(ReplaceLevel) + QtShare + sizeof(Levels) + levels->before.snapshot.bytes() +
           after;
}

std::unique_ptr<HistoryStep> ReplaceLevel::copy() const {
    return std::unique_ptr<HistoryStep>(new ReplaceLevel(show, keep, levels));
}
