#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include <unistd.h>

// Prints Google Benchmark's table, then each measured figure beside its reference as a ratio.
// A benchmark named "<figure>/<size>" is paired with "<reference>/<size>" by ReferenceOf.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    // Coloured on a terminal only, so that a table kept in a file reads plainly.
    RatioReporter() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_ColorTabular : OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    std::map<std::string, double> nanoseconds;  // per iteration, by benchmark name
};

// The reference each figure is compared with.
extern const std::map<std::string, std::string> ReferenceOf;
