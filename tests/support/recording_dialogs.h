#pragma once

#include "dialogs.h"

#include <QApplication>
#include <QStringList>

#include <deque>

// Records every message box as "style|title|prompt" ("error|hourglass|prompt" for a stop box
// under the hourglass) and every file dialog as "open|folder|recent files" or "save|...";
// answers questions from a script (then Yes) and file dialogs from another (then cancelled).
class RecordingDialogs : public Dialogs {
  public:
    QStringList shown;
    std::deque<bool> answers;
    std::deque<QString> fileNames;

    bool question(const QString& prompt, const QString& title) override {
        shown << "question|" + title + "|" + prompt;
        return next(answers, true);
    }
    void warning(const QString& prompt, const QString& title) override {
        shown << "warning|" + title + "|" + prompt;
    }
    void information(const QString& prompt, const QString& title) override {
        shown << "information|" + title + "|" + prompt;
    }
    void error(const QString& prompt) override {
        shown << (QApplication::overrideCursor() ? "error|hourglass|" : "error||") + prompt;
    }
    QString levelFileToOpen(const QString& folder, const QStringList& recent) override {
        shown << "open|" + folder + "|" + recent.join(',');
        return next(fileNames, QString());
    }
    QString levelFileToSave(const QString& folder, const QStringList& recent) override {
        shown << "save|" + folder + "|" + recent.join(',');
        return next(fileNames, QString());
    }

  private:
    template <typename T>
    static T next(std::deque<T>& script, T otherwise) {
        if (script.empty()) return otherwise;
        T first = script.front();
        script.pop_front();
        return first;
    }
};
