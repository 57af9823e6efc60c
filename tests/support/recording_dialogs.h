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
        if (answers.empty()) return true;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
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
        return chooseFile("open", folder, recent);
    }
    QString levelFileToSave(const QString& folder, const QStringList& recent) override {
        return chooseFile("save", folder, recent);
    }

  private:
    QString chooseFile(const QString& mode, const QString& folder, const QStringList& recent) {
        shown << mode + "|" + folder + "|" + recent.join(',');
        if (fileNames.empty()) return {};
        QString name = fileNames.front();
        fileNames.pop_front();
        return name;
    }
};
