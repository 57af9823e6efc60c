#include "ratio_reporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        // Of repeated runs, the median stands for the figure: a busy moment moves it least.
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
        if (run.iterations > 0)
            nanoseconds[run.benchmark_name()] =
                run.GetAdjustedRealTime() *
                benchmark::GetTimeUnitMultiplier(benchmark::kNanosecond) /
                benchmark::GetTimeUnitMultiplier(run.time_unit);
    }
}

void RatioReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::printf("\n%-34s %14s %14s %8s\n", "figure / size", "time (us)", "reference (us)", "ratio");
    for (const auto& [name, time] : nanoseconds) {
        const auto slash = name.find('/');
        const auto reference = ReferenceOf.find(name.substr(0, slash));
        if (reference == ReferenceOf.end()) continue;
        const std::string size = slash == std::string::npos ? "" : name.substr(slash);
        const auto base = nanoseconds.find(reference->second + size);
        if (base == nanoseconds.end()) continue;
        std::printf("%-34s %14.1f %14.1f %8.2f\n", name.c_str(), time / 1000.0,
                    base->second / 1000.0, time / base->second);
    }
}
