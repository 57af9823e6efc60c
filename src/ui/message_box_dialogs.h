#pragma once

#include "dialogs.h"

class QWidget;

// The message boxes as QMessageBox shows them, with Czech buttons, and the level file dialog.
class MessageBoxDialogs : public Dialogs {
  public:
    void setParent(QWidget* window) { parent = window; }

    bool question(const QString& prompt, const QString& title) override;
    void warning(const QString& prompt, const QString& title) override;
    void information(const QString& prompt, const QString& title) override;
    void error(const QString& prompt) override;
    QString levelFileToOpen(const QString& folder, const QStringList& recent) override;
    QString levelFileToSave(const QString& folder, const QStringList& recent) override;

  private:
    QWidget* parent = nullptr;
};
