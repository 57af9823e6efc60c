#include "recovery_prompts.h"

#include "dialogs.h"
#include "file_names.h"
#include "level.h"
#include "level_document.h"
#include "recovery_keeper.h"

#include <QDir>
#include <QFileInfo>

namespace {
const QString RecoverTitle = QStringLiteral("Obnovit level");
const QString OpenElsewhereTitle = QStringLiteral("Level je otevřený");
}  // namespace

RecoveryPrompts::RecoveryPrompts(LevelDocument& document, RecoveryKeeper& keeper, Dialogs& dialogs)
    : document(document), keeper(keeper), dialogs(dialogs) {}

QString RecoveryPrompts::levelName() const {
    return shownFileName(QFileInfo(document.levelFile()).fileName());
}

bool RecoveryPrompts::askAtStartUp(const LevelView& shown) {
    if (keeper.otherEditor() != 0 &&
        !dialogs.question(
            QStringLiteral("Level %1 už je otevřený v jiném okně editoru (proces %2). Otevřít "
                           "ho přesto?")
                .arg(levelName())
                .arg(keeper.otherEditor()),
            OpenElsewhereTitle))
        return false;
    keeper.startKeeping();
    offerRecovery(shown);
    return true;
}

// A copy that cannot be read is told of without a question; a readable one is offered.
void RecoveryPrompts::offerRecovery(const LevelView& shown) {
    const auto copy = keeper.leftBehind();
    if (!copy) return;
    Level recovered;
    QString reason, movedTo;
    if (!keeper.read(*copy, recovered, reason, movedTo)) {
        const QString where = movedTo.isEmpty()
                                  ? QStringLiteral("byla smazána")
                                  : QStringLiteral("je odložená v %1").arg(shownFileName(movedTo));
        return dialogs.error(
            QStringLiteral("Neuložené změny levelu %1 nelze obnovit: %2\nKopie %3.")
                .arg(levelName(), reason, where));
    }
    const QString when =
        copy->info.written.toLocalTime().toString(QStringLiteral("d. M. yyyy H:mm"));
    const QString question =
        QStringLiteral("Editor nebyl řádně ukončen. Obnovit neuložené změny levelu %1 z %2?")
            .arg(levelName(), when.isEmpty() ? QStringLiteral("neznámé doby") : when);
    if (!dialogs.question(question, RecoverTitle)) return keeper.discard(*copy);
    document.restoreLevel(std::move(recovered), shown);
    keeper.adopt(*copy);
}

bool RecoveryPrompts::mayWrite() {
    if (!keeper.otherEditorRunning()) return true;
    return dialogs.question(
        QStringLiteral("Level %1 je otevřený i v jiném okně editoru (proces %2).\nUložením "
                       "přepíšete, co v něm uloží. Přesto uložit?")
            .arg(levelName())
            .arg(keeper.otherEditor()),
        OpenElsewhereTitle);
}

void RecoveryPrompts::tellCopyFailed(const QString& reason) {
    dialogs.warning(QStringLiteral("Kopii neuložených změn pro případ pádu editoru nelze zapsat "
                                   "do složky %1:\n%2\nLevel se dál ukládá tlačítkem ULOŽIT "
                                   "jako dosud.")
                        .arg(shownFileName(keeper.folder()), reason),
                    QStringLiteral("Pozor"));
}
