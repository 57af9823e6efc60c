#include "x11_session.h"

#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QThread>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

bool X11Session::waitUntil(int timeoutMs, const std::function<bool()>& done) {
    for (const QDeadlineTimer deadline(timeoutMs); !done(); QThread::msleep(100))
        if (deadline.hasExpired()) return false;
    return true;
}

X11Session::X11Session() {
    qputenv("TMPDIR", "/tmp");
    environment.insert("PATH", qEnvironmentVariable("PATH", "/usr/local/bin:/usr/bin:/bin"));
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("HOME", scratch.path());
    environment.insert("XDG_RUNTIME_DIR", scratch.path());  // made with mode 0700, as required
    // Xvfb picks a free display and writes its number to the descriptor named. Without -noreset
    // it resets whenever its last client leaves, refusing whoever connects meanwhile.
    server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1600x2400x24", "-nolisten", "tcp",
                          "-noreset"});
    QByteArray display;
    while (!display.contains('\n') && server.waitForReadyRead(10000))
        display += server.readAllStandardOutput();
    environment.insert("DISPLAY", ':' + QString::fromLatin1(display.trimmed()));
    // The server is up once a client can ask it something.
    waitUntil(10000, [this] { return xdotool({"getdisplaygeometry"}); });
}

X11Session::~X11Session() {
    editor.kill();
    editor.waitForFinished();
    server.terminate();
    server.waitForFinished();
}

bool X11Session::run(const QString& program, const QStringList& arguments, QByteArray* output) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(20000)) return false;
    if (output) *output = process.readAllStandardOutput();
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

bool X11Session::startEditor(const QString& folder, const QStringList& arguments) {
    if (!launchEditor(folder, arguments)) return false;
    // The title names the level file when it is not level99.VRK of the starting folder.
    mainWindow = waitForWindowMatching("^VARNOK LEVEL EDITOR( — .+)?$");
    return !mainWindow.isEmpty();
}

int X11Session::editorExitCode() {
    if (!editor.waitForFinished(20000) || editor.exitStatus() != QProcess::NormalExit) return -1;
    return editor.exitCode();
}

bool X11Session::closeEditorWindow() {
    Display* display = XOpenDisplay(qPrintable(environment.value("DISPLAY")));
    if (!display) return false;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = mainWindow.toULong();
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    const Status sent = XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
    XCloseDisplay(display);
    return sent != 0;
}

bool X11Session::launchEditor(const QString& folder, const QStringList& arguments,
                              QProcess* another) {
    QProcessEnvironment editorEnvironment = environment;
    editorEnvironment.remove("LC_ALL");
    editorEnvironment.insert("ASAN_OPTIONS", "detect_leaks=0");
    editorEnvironment.insert("UBSAN_OPTIONS", qEnvironmentVariable("UBSAN_OPTIONS"));
    QProcess& process = another ? *another : editor;
    process.setProcessEnvironment(editorEnvironment);
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(VARNOK_EDITOR, arguments);
    return process.waitForStarted();
}

bool X11Session::boxShown(const QString& title) {
    return xdotool(
        {"search", "--onlyvisible", "--name", '^' + QRegularExpression::escape(title) + '$'});
}

QString X11Session::waitForWindow(const QString& title) {
    return waitForWindowMatching('^' + QRegularExpression::escape(title) + '$');
}

QString X11Session::waitForWindowMatching(const QString& pattern) {
    QByteArray ids;  // none when the last search found nothing
    waitUntil(20000, [&] { return xdotool({"search", "--onlyvisible", "--name", pattern}, &ids); });
    return QString::fromLatin1(ids).section('\n', 0, 0);
}

// Without a window manager a new window gets the keyboard when the program asks for it, which
// on a busy machine can come after the first keys: those would go to the window below.
bool X11Session::takeKeys(const QString& window) {
    const auto focused = [&] {
        QByteArray id;
        return xdotool({"getwindowfocus"}, &id) && QString::fromLatin1(id).trimmed() == window;
    };
    if (waitUntil(2000, focused)) return true;
    xdotool({"windowfocus", "--sync", window});
    return focused();
}

bool X11Session::closeBox(const QString& title, const QString& typed) {
    const QString box = waitForWindow(title);
    if (box.isEmpty() || !takeKeys(box)) return false;
    if (!typed.isEmpty()) xdotool({"type", "--delay", "20", typed});
    key("Return");
    return waitUntil(15000, [&] { return !boxShown(title); });
}

// Looked up by its title, not by the window first found at start-up: Qt may have made that
// one again meanwhile.
bool X11Session::mainWindowTitled(const QString& title) {
    const QString found = waitForWindow(title);
    if (!found.isEmpty()) mainWindow = found;
    return !found.isEmpty();
}

QPoint X11Session::windowOrigin(const QString& window) {
    QByteArray shell;
    xdotool({"getwindowgeometry", "--shell", window}, &shell);
    const auto match = QRegularExpression("X=(\\d+)\nY=(\\d+)").match(QString::fromLatin1(shell));
    return {match.captured(1).toInt(), match.captured(2).toInt()};
}

void X11Session::resizeEditor(int width, int height) {
    xdotool({"windowsize", "--sync", mainWindow, QString::number(width), QString::number(height)});
    QThread::msleep(300);
}

void X11Session::click(QPoint screen) {
    xdotool(moveTo(screen) + QStringList{"click", "1"});
    QThread::msleep(150);
}

void X11Session::clickInWindow(std::initializer_list<QPoint> places) {
    const QPoint client = clientOrigin();
    for (QPoint place : places) click(client + place);
}

void X11Session::drag(QPoint from, QPoint to) {
    xdotool(moveTo(from) + QStringList{"mousedown", "1"});
    for (int step = 1; step <= 8; ++step) xdotool(moveTo(from + (to - from) * step / 8));
    xdotool({"mouseup", "1"});
    QThread::msleep(150);
}

void X11Session::key(const QString& keys) {
    xdotool({"key", keys});
    QThread::msleep(200);
}

// Never twice at one place: a move that does not move would wait.
void X11Session::keyInWindow(const QString& keys) {
    clickInWindow({{150 + 10 * (++hintClicks % 2), 8}});
    key(keys);
}

QString X11Session::messageText(const QString& title) {
    // The boxes' texts are selectable: click into the text, select all, copy.
    const QString box = waitForWindow(title);
    click(windowOrigin(box) + QPoint(100, 18));
    takeKeys(box);
    run("xclip", {"-selection", "clipboard", "-in", "/dev/null"});  // no text of an earlier box
    key("ctrl+a");
    key("ctrl+c");
    // The copy is the box's to make: read the clipboard until it has come.
    QByteArray text;
    waitUntil(15000, [&] {
        return run("xclip", {"-out", "-selection", "clipboard"}, &text) && !text.isEmpty();
    });
    return QString::fromUtf8(text);
}

QImage X11Session::screenshot() {
    QByteArray png;
    run("import", {"-window", "root", "png:-"}, &png);
    return QImage::fromData(png, "PNG");
}
