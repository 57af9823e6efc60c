#include "replace_level.h"

ReplaceLevel::ReplaceLevel(Show show, Keep keep, ShownLevel before, LevelView afterView)
    : show(std::move(show)),
      keep(std::move(keep)),
      before(std::move(before)),
      afterView(std::move(afterView)) {}

void ReplaceLevel::undo() {
    // Every later step is undone by now, so the document holds the level exactly as this step
    // left it: New and Open need not pack it, and most of them are never undone.
    if (!after) after = ShownLevel{keep(), afterView};
    show(before);
}

std::size_t ReplaceLevel::bytes() const {
    const std::size_t kept = after ? after->snapshot.bytes() : 0;
    return sizeof(ReplaceLevel) + sizeof(void*) + before.snapshot.bytes() + kept;
}
