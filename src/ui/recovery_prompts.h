#pragma once

#include "level_snapshot.h"

#include <QString>

class Dialogs;
class LevelDocument;
class RecoveryKeeper;

// The questions the recovery copies and the level file's lock bring: at start-up, after the
// help box, whether to go on beside another editor of the same file and whether to bring back
// a level a crash left behind; before Save, whether to write over that other editor's file.
class RecoveryPrompts {
  public:
    RecoveryPrompts(LevelDocument& document, RecoveryKeeper& keeper, Dialogs& dialogs);

    // After the help box; false when the editor is to end, the level file being another's.
    bool askAtStartUp(const LevelView& shown);
    // Before Save writes; false when the user would rather not write.
    bool mayWrite();
    // The first recovery copy that could not be written: said once, editing goes on.
    void tellCopyFailed(const QString& reason);

  private:
    QString levelName() const;
    void offerRecovery(const LevelView& shown);

    LevelDocument& document;
    RecoveryKeeper& keeper;
    Dialogs& dialogs;
};
