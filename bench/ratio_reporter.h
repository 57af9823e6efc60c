#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

// Prints Google Benchmark's table, then each measured figure beside its reference as a ratio.
// A benchmark named "<figure>/<size>" is paired with "<reference>/<size>" by ReferenceOf.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    std::map<std::string, double> nanoseconds;  // per iteration, by benchmark name
};

// The reference each figure is compared with.
extern const std::map<std::string, std::string> ReferenceOf;
