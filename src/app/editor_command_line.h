#pragma once

#include <QString>
#include <QStringList>

// What the editor's command line asks for: the level to work on, or a text to print and exit.
struct EditorLaunch {
    enum class Action { Run, Print, Fail };
    Action action = Action::Fail;
    QString levelFile;    // Run: absolute path of the file read at start-up, by Open and Save
    QString spriteSheet;  // Run: absolute path of EditPic.jpg beside it (the built-in if missing)
    QString text;         // Print: help or version, for stdout; Fail: a one-line message
    int exitCode = 0;     // Print 0; Fail 2 for wrong usage, 1 for a path that cannot be used
};

// The folder the desktop menu starts the editor in, below the home folder.
inline constexpr char MenuFolderName[] = "Varnok";

// Reads `varnok-editor [--varnok-folder] [PATH]`, --help and --version; arguments[0] is the
// program. PATH is a folder (its level99.VRK) or a level file of any name, relative to
// currentFolder; a missing *.vrk file in an existing folder is a new level that Save creates.
// Without PATH: currentFolder, or with --varnok-folder homeFolder/Varnok, made here when missing.
// A PATH (or that folder) is refused when the level in it could not be read; one that could not
// be saved opens, and Save tells why. An empty homeFolder (none known) refuses --varnok-folder.
EditorLaunch parseEditorCommandLine(const QStringList& arguments, const QString& currentFolder,
                                    const QString& homeFolder);

// The user's home folder: HOME, else the user database's entry; empty when neither names one.
QString userHomeFolder();
