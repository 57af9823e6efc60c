#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

// A private X server (Xvfb) with the editor in it, driven by real input from xdotool. The X tools
// get a UTF-8 locale (Czech titles and copied text are converted to it), the editor no locale at
// all, as a fresh container starts it. Make it before any file that the editor must read.
class X11Session {
  public:
    X11Session();
    ~X11Session();
    // Polls until `done` holds; false when the time ran out first.
    static bool waitUntil(int timeoutMs, const std::function<bool()>& done);

    // Starts the editor in `folder`, waits for its window.
    bool startEditor(const QString& folder, const QStringList& arguments = {});
    // Starts the editor as startEditor does, without waiting for any window; with `another`,
    // one more editor in that process, beside the one above.
    bool launchEditor(const QString& folder, const QStringList& arguments = {},
                      QProcess* another = nullptr);
    QString home() const { return scratch.path(); }  // the editors' home folder
    // Asks the main window to close, as a window manager's close button does.
    bool closeEditorWindow();
    bool boxShown(const QString& title);
    // The editor's exit code once it has ended, or -1 when it has not within 20 s.
    int editorExitCode();
    bool editorRunning() { return !editor.waitForFinished(0) && editor.processId(); }
    qint64 editorId() const { return editor.processId(); }

    // Waits for the box with this title, types `typed` into it (a file dialog's path), presses
    // Return (its default button), waits till it goes.
    bool closeBox(const QString& title, const QString& typed = {});
    // Whether the main window comes to have this title within 20 s.
    bool mainWindowTitled(const QString& title);
    // The text shown in the box with this title, copied from the screen.
    QString messageText(const QString& title);

    QPoint clientOrigin() { return windowOrigin(mainWindow); }  // the main window's, on screen
    void resizeEditor(int width, int height);
    void click(QPoint screen);
    void clickInWindow(std::initializer_list<QPoint> places);  // points of the client area
    void drag(QPoint from, QPoint to);
    void key(const QString& keys);
    // Clicks the mouse hint, which gives the window the keys without a window manager; keys.
    void keyInWindow(const QString& keys);
    bool run(const QString& program, const QStringList& arguments, QByteArray* output = nullptr);
    bool xdotool(const QStringList& arguments, QByteArray* output = nullptr) {
        return run("xdotool", arguments, output);
    }
    // xdotool's arguments that move the pointer there and wait until it has moved.
    static QStringList moveTo(QPoint screen) {
        return {"mousemove", "--sync", QString::number(screen.x()), QString::number(screen.y())};
    }
    QImage screenshot();

  private:
    QString waitForWindow(const QString& title);  // its id once it shows, or empty
    QString waitForWindowMatching(const QString& pattern);
    QPoint windowOrigin(const QString& window);
    // Waits until `window` has the keyboard, giving it the keyboard if it does not get it.
    bool takeKeys(const QString& window);

    QTemporaryDir scratch;  // HOME and XDG_RUNTIME_DIR; outlives the processes below
    QProcessEnvironment environment;
    QProcess server, editor;
    QString mainWindow;
    int hintClicks = 0;
};
