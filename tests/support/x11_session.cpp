#include "x11_session.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QThread>

#include <sys/stat.h>
#include <unistd.h>

void X11Session::prepareProcess() {
    umask(022);
    qputenv("TMPDIR", "/tmp");
}

X11Session::X11Session() {
    environment.insert("PATH", qEnvironmentVariable("PATH", "/usr/local/bin:/usr/bin:/bin"));
    environment.insert("LANG", "C.UTF-8");
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("HOME", scratch.filePath("home"));
    environment.insert("XDG_RUNTIME_DIR", scratch.path());  // made with mode 0700, as required
    environment.insert("TMPDIR", QDir::tempPath());
    QDir(scratch.path()).mkdir("home");
    server.setProcessEnvironment(environment);
    // Xvfb picks a free display and writes its number to the descriptor named. Without
    // -noreset it resets whenever its last client leaves, refusing whoever connects meanwhile.
    server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1600x2400x24", "-nolisten", "tcp",
                          "-noreset"});
    server.waitForStarted();
    QByteArray display;
    while (!display.contains('\n') && server.waitForReadyRead(10000))
        display += server.readAllStandardOutput();
    environment.insert("DISPLAY", ':' + QString::fromLatin1(display.trimmed()));
    // The server is up once a client can ask it something.
    QDeadlineTimer deadline(10000);
    while (!deadline.hasExpired() && !xdotool({"getdisplaygeometry"})) QThread::msleep(100);
}

X11Session::~X11Session() {
    if (editor.state() != QProcess::NotRunning) {
        editor.kill();
        editor.waitForFinished();
    }
    server.terminate();
    server.waitForFinished();
}

bool X11Session::xdotool(const QStringList& arguments, QByteArray* output) {
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start("xdotool", arguments);
    if (!tool.waitForFinished(10000)) return false;
    if (output) *output = tool.readAllStandardOutput();
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

bool X11Session::startEditor(const QString& program, const QString& folder, User user,
                             const QStringList& arguments) {
    QProcessEnvironment editorEnvironment = environment;
    editorEnvironment.remove("LANG");
    editorEnvironment.remove("LC_ALL");
    editorEnvironment.insert("ASAN_OPTIONS", "detect_leaks=0");
    if (qEnvironmentVariableIsSet("UBSAN_OPTIONS"))
        editorEnvironment.insert("UBSAN_OPTIONS", qEnvironmentVariable("UBSAN_OPTIONS"));
    if (user == User::Ordinary && geteuid() == 0) {
        constexpr uid_t nobody = 65534;
        editorEnvironment.insert("HOME", "/nonexistent");
        editorEnvironment.remove("XDG_RUNTIME_DIR");
        editor.setChildProcessModifier([] {
            if (setgid(nobody) != 0 || setuid(nobody) != 0) _exit(126);
        });
    }
    editor.setProcessEnvironment(editorEnvironment);
    editor.setWorkingDirectory(folder);
    editor.setProcessChannelMode(QProcess::ForwardedChannels);
    editor.start(program, arguments);
    if (!editor.waitForStarted()) return false;
    mainWindow = waitForWindow("VARNOK LEVEL EDITOR");
    return !mainWindow.isEmpty();
}

QString X11Session::waitForWindow(const QString& title, int timeoutMs) {
    QDeadlineTimer deadline(timeoutMs);
    QByteArray ids;
    const QString pattern = '^' + QRegularExpression::escape(title) + '$';
    while (!deadline.hasExpired()) {
        if (xdotool({"search", "--onlyvisible", "--name", pattern}, &ids) && !ids.isEmpty())
            return QString::fromLatin1(ids.split('\n').first());
        QThread::msleep(100);
    }
    return {};
}

bool X11Session::windowGone(const QString& title, int timeoutMs) {
    QDeadlineTimer deadline(timeoutMs);
    const QString pattern = '^' + QRegularExpression::escape(title) + '$';
    while (!deadline.hasExpired()) {
        if (!xdotool({"search", "--onlyvisible", "--name", pattern})) return true;
        QThread::msleep(100);
    }
    return false;
}

QPoint X11Session::clientOrigin() {
    return windowOrigin(mainWindow);
}

QPoint X11Session::windowOrigin(const QString& window) {
    QByteArray shell;
    xdotool({"getwindowgeometry", "--shell", window}, &shell);
    QPoint origin;
    for (const QByteArray& line : shell.split('\n')) {
        if (line.startsWith("X=")) origin.setX(line.mid(2).toInt());
        if (line.startsWith("Y=")) origin.setY(line.mid(2).toInt());
    }
    return origin;
}

void X11Session::resizeEditor(int width, int height) {
    xdotool({"windowsize", "--sync", mainWindow, QString::number(width), QString::number(height)});
    QThread::msleep(300);
}

void X11Session::click(QPoint screen, int button) {
    xdotool({"mousemove", "--sync", QString::number(screen.x()), QString::number(screen.y())});
    xdotool({"click", QString::number(button)});
    QThread::msleep(150);
}

void X11Session::drag(QPoint from, QPoint to, int button) {
    xdotool({"mousemove", "--sync", QString::number(from.x()), QString::number(from.y())});
    xdotool({"mousedown", QString::number(button)});
    constexpr int steps = 8;
    for (int i = 1; i <= steps; ++i) {
        const QPoint at = from + (to - from) * i / steps;
        xdotool({"mousemove", "--sync", QString::number(at.x()), QString::number(at.y())});
    }
    xdotool({"mouseup", QString::number(button)});
    QThread::msleep(150);
}

void X11Session::key(const QString& keys) {
    xdotool({"key", keys});
    QThread::msleep(200);
}

QString X11Session::messageText(const QString& title) {
    // The boxes' texts are selectable: click into the text, select all, copy.
    click(windowOrigin(waitForWindow(title)) + QPoint(100, 18));
    key("ctrl+a");
    key("ctrl+c");
    QProcess clipboard;
    clipboard.setProcessEnvironment(environment);
    clipboard.start("xclip", {"-out", "-selection", "clipboard"});
    clipboard.waitForFinished(10000);
    return QString::fromUtf8(clipboard.readAllStandardOutput());
}

QImage X11Session::screenshot() {
    QTemporaryFile file(QDir::tempPath() + "/varnok-shot-XXXXXX.png");
    if (!file.open()) return {};
    QProcess import;
    import.setProcessEnvironment(environment);
    import.start("import", {"-window", "root", file.fileName()});
    import.waitForFinished(20000);
    return QImage(file.fileName());
}
