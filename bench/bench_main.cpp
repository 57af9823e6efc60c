#include "ratio_reporter.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);  // the window for the painting figures
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
