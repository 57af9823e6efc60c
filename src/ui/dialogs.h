#pragma once

#include <QString>

// The modal message boxes the editor shows, in their four styles. The window implements
// them with QMessageBox; tests record the prompts and script the answers.
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
};
