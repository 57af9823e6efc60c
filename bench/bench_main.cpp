#include "bench_application.h"
#include "ratio_reporter.h"

int main(int argc, char** argv) {
    BenchApplication app(argc, argv);  // the window for the painting figures
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
