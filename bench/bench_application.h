#pragma once

#include <QApplication>
#include <QElapsedTimer>

#include <functional>

// The benchmarks' application: it can tell a benchmark each event it has finished handling and
// how long that took, e.g. the window's update request after which a frame is ready.
class BenchApplication : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        if (!afterEvent) return QApplication::notify(receiver, event);
        const QEvent::Type type = event->type();  // the event may not outlive its handling
        QElapsedTimer handling;
        handling.start();
        const bool handled = QApplication::notify(receiver, event);
        afterEvent(receiver, type, handling.nsecsElapsed());
        return handled;
    }
    static inline std::function<void(QObject*, QEvent::Type, qint64 nanoseconds)> afterEvent;
};
