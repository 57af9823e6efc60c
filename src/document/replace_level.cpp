#include "replace_level.h"

namespace {
std::size_t viewBytes(const LevelView& view) {
    return std::size_t(view.widthText.capacity() + view.heightText.capacity()) * sizeof(QChar);
}
}  // namespace

std::size_t ReplaceLevel::bytes() const {
    return sizeof(ReplaceLevel) + QtShare + sizeof(Levels) + levels->before.snapshot.bytes() +
           levels->after.snapshot.bytes() + viewBytes(levels->before.view) +
           viewBytes(levels->after.view);
}

std::unique_ptr<HistoryStep> ReplaceLevel::copy() const {
    return std::make_unique<ReplaceLevel>(show, levels);
}
