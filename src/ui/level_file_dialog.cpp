#include "level_file_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

QString chooseLevelFile(QWidget* parent, bool saving, const QString& folder,
                        const QStringList& recent) {
    QFileDialog dialog(
        parent, saving ? QStringLiteral("Uložit level jako") : QStringLiteral("Otevřít level"),
        folder);
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(
        {QStringLiteral("Levely Varnok (*.VRK *.vrk)"), QStringLiteral("Všechny soubory (*)")});
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (saving) dialog.setDefaultSuffix(QStringLiteral("VRK"));
    // Both the sidebar and the history take folders only: those of the recent files.
    QStringList folders;
    for (const QString& file : recent) {
        const QString recentFolder = QFileInfo(file).absolutePath();
        if (!folders.contains(recentFolder)) folders << recentFolder;
    }
    dialog.setHistory(folders);
    QList<QUrl> places = dialog.sidebarUrls();
    for (const QString& recentFolder : folders) {
        const QUrl place = QUrl::fromLocalFile(recentFolder);
        if (!places.contains(place)) places << place;
    }
    dialog.setSidebarUrls(places);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}
