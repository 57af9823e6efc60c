#pragma once

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// A private X server (Xvfb) with the editor running in it, driven by real input from xdotool.
// Its programs get an environment made here, not the caller's: the X tools a UTF-8 locale (they
// convert window titles and copied text to it, so Czech titles would never match without), a
// private HOME and XDG_RUNTIME_DIR; the editor the same but with no locale at all, as a fresh
// container or a service starts it.
class X11Session {
  public:
    X11Session();
    // Once per test process, before it makes any file: a umask of 022 and the shared /tmp, so
    // that what the tests make is readable by the editor's ordinary user whatever the caller's
    // umask or a private TMPDIR (one that only its owner may enter) would be.
    static void prepareProcess();
    ~X11Session();
    bool serverUp() const { return server.state() == QProcess::Running; }

    // Starts the editor in `folder` with `arguments` and waits for its main window. As an
    // ordinary user, the editor runs as "nobody" when the tests run as root, so that file
    // permissions hold.
    enum class User { Same, Ordinary };
    bool startEditor(const QString& program, const QString& folder, User user = User::Same,
                     const QStringList& arguments = {});
    bool editorRunning() const { return editor.state() == QProcess::Running; }

    // Waits until a window with exactly this title exists; its id, or empty.
    QString waitForWindow(const QString& title, int timeoutMs = 20000);
    bool windowGone(const QString& title, int timeoutMs = 5000);

    // Client-area origin of the main window on the screen.
    QPoint clientOrigin();
    QPoint windowOrigin(const QString& window);
    void resizeEditor(int width, int height);
    void click(QPoint screen, int button = 1);
    void drag(QPoint from, QPoint to, int button = 1);
    void key(const QString& keys);
    bool xdotool(const QStringList& arguments, QByteArray* output = nullptr);
    QImage screenshot();
    // The text shown in the message box with this title, copied from the screen.
    QString messageText(const QString& title);

  private:
    QTemporaryDir scratch;  // HOME and XDG_RUNTIME_DIR; outlives the processes below
    QProcessEnvironment environment;
    QProcess server;
    QProcess editor;
    QString mainWindow;
};
