#include "switch_level_file.h"

SwitchLevelFile::SwitchLevelFile(std::unique_ptr<HistoryStep> replace, Use use, Current current,
                                 WorkingFile before)
    : replace(std::move(replace)),
      use(std::move(use)),
      current(std::move(current)),
      before(std::move(before)) {}

void SwitchLevelFile::undo() {
    // Every later step is undone by now; the file the level was last saved under is the one
    // that comes back with it on redo.
    after = current();
    replace->undo();
    use(before);
}

void SwitchLevelFile::redo() {
    replace->redo();
    if (after) use(*after);
}

std::size_t SwitchLevelFile::bytes() const {
    // The sheets' pixels are shared with the document while it shows them; counted anyway.
    const auto sheetBytes = [](const WorkingFile& file) {
        return static_cast<std::size_t>(file.sheet.image().sizeInBytes());
    };
    return sizeof(SwitchLevelFile) + replace->bytes() + sheetBytes(before) +
           (after ? sheetBytes(*after) : 0);
}
