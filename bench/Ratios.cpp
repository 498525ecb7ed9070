#include "Ratios.h"

#include <malloc.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <vector>

namespace Bench {

namespace {

struct Comparison {
    std::string name;
    double limit;
};

struct Figure {
    std::string name;
    double limit;
    std::string unit;
    std::function<double()> measure;
};

std::vector<Comparison> & comparisons() {
    static std::vector<Comparison> all;
    return all;
}

std::vector<Figure> & figures() {
    static std::vector<Figure> all;
    return all;
}

std::atomic<std::int64_t> allocationCount{0};

void run(benchmark::State & state, Setup const & setup) {
    Work const work = setup();
    std::int64_t items = 0;
    for (auto _ : state)
        items += work();
    state.SetItemsProcessed(items);
}

/// Keeps the median rate of each benchmark.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(std::vector<Run> const & runs) override {
        for (Run const & run : runs)
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = 1e9 / run.counters.at("items_per_second").value;
    }

    std::map<std::string, double> medians;
};

char const * verdict(double value, double limit) {
    return value <= limit ? "" : "  ABOVE";
}

} // namespace

void compare(std::string const & name, double limit, Setup ours, Setup peer) {
    comparisons().push_back({name, limit});
    for (auto const & [side, setup] : {std::pair{"/ours", ours}, std::pair{"/peer", peer}})
        benchmark::RegisterBenchmark((name + side).c_str(),
                                     [setup = setup](benchmark::State & state) { run(state, setup); })
            ->Repetitions(7)
            ->ReportAggregatesOnly(true)
            ->MinTime(0.05);
}

void figure(std::string const & name, double limit, std::string const & unit, std::function<double()> measure) {
    figures().push_back({name, limit, unit, measure});
}

std::int64_t allocations() {
    return allocationCount;
}

std::int64_t heapBytes() {
    return static_cast<std::int64_t>(mallinfo2().uordblks + mallinfo2().hblkhd);
}

} // namespace Bench

void * operator new(std::size_t size) {
    ++Bench::allocationCount;
    if (void * memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void * memory) noexcept {
    std::free(memory);
}

void operator delete(void * memory, std::size_t) noexcept {
    std::free(memory);
}

int main(int argc, char ** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Bench::MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n%-52s %10s %10s %8s %8s\n", "medians of seven, ns an item", "ours", "peer", "ratio", "limit");
    for (Bench::Comparison const & one : Bench::comparisons()) {
        auto const ours = reporter.medians.find(one.name + "/ours");
        auto const peer = reporter.medians.find(one.name + "/peer");
        if (ours == reporter.medians.end() || peer == reporter.medians.end())
            continue;
        double const ratio = ours->second / peer->second;
        std::printf("%-52s %10.2f %10.2f %8.2f %8.2f%s\n", one.name.c_str(), ours->second, peer->second, ratio,
                    one.limit, Bench::verdict(ratio, one.limit));
    }
    std::printf("\n%-52s %21s %17s\n", "figures", "measured", "limit");
    for (Bench::Figure const & one : Bench::figures()) {
        double const measured = one.measure();
        std::printf("%-52s %21.2f %17.2f %s%s\n", one.name.c_str(), measured, one.limit, one.unit.c_str(),
                    Bench::verdict(measured, one.limit));
    }
    return 0;
}
