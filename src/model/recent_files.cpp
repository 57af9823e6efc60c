#include "recent_files.h"

#include "file_names.h"

#include <QSettings>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {
constexpr char Key[] = "recentFiles";

bool isFile(const QString& path) {
    struct stat info {};
    return statusOf(path, info) && S_ISREG(info.st_mode);
}
}  // namespace

RecentFiles::RecentFiles(QString settingsFile) : settingsFile(std::move(settingsFile)) {}

QString RecentFiles::defaultSettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/varnok/varnok-editor.conf");
}

QStringList RecentFiles::files() const {
    if (writing.valid()) writing.wait();
    const QSettings settings(settingsFile, QSettings::IniFormat);
    QStringList kept;
    for (const QString& path : settings.value(Key).toStringList())
        if (isFile(path) && !kept.contains(path) && kept.size() < Kept) kept << path;
    return kept;
}

void RecentFiles::add(const QString& path) {
    // A name with bytes that are not UTF-8 would not survive the settings file.
    if (hasForeignBytes(path)) return;
    const QStringList before = files();
    QStringList kept = before;
    kept.removeAll(path);
    kept.prepend(path);
    // Writing the settings syncs the file and its lock to the disk, which takes milliseconds
    // and more on a busy disk: not at every start on the same file, and never on the way to
    // the window.
    if (kept == before) return;
    writing = std::async(std::launch::async, [file = settingsFile, list = kept.mid(0, Kept)] {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue(Key, list);
    });
}
