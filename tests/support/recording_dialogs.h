#pragma once

#include "dialogs.h"

#include <QStringList>

#include <deque>

// Records every message box as "style|title|prompt" and answers questions from a script
// (Yes when the script has run out).
class RecordingDialogs : public Dialogs {
  public:
    QStringList shown;
    std::deque<bool> answers;

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
    void error(const QString& prompt) override { shown << "error||" + prompt; }
};
