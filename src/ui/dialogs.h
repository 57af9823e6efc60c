#pragma once

#include <QString>
#include <QStringList>

// The modal message boxes the editor shows, in their four styles, and the file dialog that
// chooses a level file. The window implements them with QMessageBox and QFileDialog; tests
// record the prompts and script the answers.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    // Yes/No with a question mark; true for Yes.
    virtual bool question(const QString& prompt, const QString& title) = 0;
    // OK with an exclamation mark.
    virtual void warning(const QString& prompt, const QString& title) = 0;
    // OK with an information sign.
    virtual void information(const QString& prompt, const QString& title) = 0;
    // OK with a stop sign and no title of its own: the application's name is shown.
    virtual void error(const QString& prompt) = 0;
    // A level file chosen in the file dialog, to open or to save under, starting in `folder`;
    // `recent` are the files worked on last, most recent first. Empty when cancelled.
    virtual QString levelFileToOpen(const QString& folder, const QStringList& recent) = 0;
    virtual QString levelFileToSave(const QString& folder, const QStringList& recent) = 0;
};
