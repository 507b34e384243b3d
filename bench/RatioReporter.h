#pragma once
// The console reporter of every benchmark program: it prints each run as
// usual and keeps its real time per iteration, so that the program can print
// how many times slower a path is than its raw baseline measured in the same
// run. Ratios compare across machines; absolute times do not.
#include <benchmark/benchmark.h>

#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace avlor::bench {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                times_[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
    }

    [[nodiscard]] const std::map<std::string, double>& times() const { return times_; }

    // Prints "label: ratio" (and the goal, when given) if both benchmarks
    // ran; nothing when a filter left one out.
    void printRatio(const std::string& label, const std::string& measured, const std::string& baseline,
                    double goal = 0) const
    {
        const auto m = times_.find(measured);
        const auto b = times_.find(baseline);
        if (m == times_.end() || b == times_.end() || b->second <= 0) {
            return;
        }
        const double ratio = m->second / b->second;
        std::cout << label << ": " << ratio;
        if (goal > 0) {
            std::cout << " (goal <= " << goal << (ratio <= goal ? ", met)" : ", NOT met)");
        }
        std::cout << "\n";
    }

private:
    std::map<std::string, double> times_;
};

} // namespace avlor::bench
