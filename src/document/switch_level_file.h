#pragma once

#include "history_step.h"
#include "sprite_sheet.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

// The file a level is read from and saved to, with the sprite sheet found beside it.
struct WorkingFile {
    QString levelPath;
    QString sheetPath;
    SpriteSheet sheet;
};

// Opening another level file as a step: the level is replaced as by Open, and the working file
// changes with it. Undone, the earlier level comes back together with the file it belongs to,
// so a later Save never writes one level over another's file.
class SwitchLevelFile : public HistoryStep {
  public:
    // `use` makes a working file the document's; `current` tells which one it is now.
    using Use = std::function<void(const WorkingFile&)>;
    using Current = std::function<WorkingFile()>;

    SwitchLevelFile(std::unique_ptr<HistoryStep> replace, Use use, Current current,
                    WorkingFile before);

    void undo() override;
    void redo() override;
    std::size_t bytes() const override;

  private:
    std::unique_ptr<HistoryStep> replace;
    Use use;
    Current current;
    WorkingFile before;
    std::optional<WorkingFile> after;  // taken at each undo: a later Save As counts
};
