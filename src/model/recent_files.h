#pragma once

#include <QString>
#include <QStringList>

#include <future>

// The level files worked on last, most recent first, kept in the user's settings: the file
// varnok/varnok-editor.conf in the configuration folder (XDG_CONFIG_HOME, else ~/.config).
// A file that is gone is left out silently. The list is written on a thread of its own, as
// writing it syncs the file to the disk; this object's reads and its end wait for that write.
class RecentFiles {
  public:
    static constexpr qsizetype Kept = 10;

    explicit RecentFiles(QString settingsFile = defaultSettingsFile());
    static QString defaultSettingsFile();

    // The files that are still there, most recent first.
    QStringList files() const;
    // Puts an absolute path first; the oldest beyond the last Kept go.
    void add(const QString& path);

  private:
    QString settingsFile;
    std::future<void> writing;
};
