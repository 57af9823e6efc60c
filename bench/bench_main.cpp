#include "ratio_reporter.h"

#include <QGuiApplication>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);  // fonts and widgets for the painting figures
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
