#include "block_copy.h"

#include "level.h"

#include <algorithm>

LevelBlock copyBlock(const Level& level, const QRect& cells) {
    const QRect taken = cells & QRect(0, 0, level.width(), level.height());
    if (taken.isEmpty()) return {};
    LevelBlock block{taken.width(), taken.height(), {}};
    block.codes.resize(static_cast<std::size_t>(taken.width()) *
                       static_cast<std::size_t>(taken.height()));
    auto into = block.codes.begin();
    for (int y = taken.top(); y <= taken.bottom(); ++y)
        into = std::copy_n(level.row(y) + taken.left(), taken.width(), into);
    return block;
}
