// The cost of one line of the diagnostics when the log is full and each new line removes the
// oldest.

#include "adapters/sim/VirtualScheduler.h"
#include "diagnostics/DiagnosticsLog.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

namespace larkspan {
namespace {

void writeLine(benchmark::State& state) {
    const sim::VirtualScheduler scheduler;
    DiagnosticsLog log(scheduler);
    const auto write = [&](std::size_t i) {
        log.write("windows", fmt::format("window list read in {} ms; nothing to regroup", i % 10));
    };
    for (std::size_t i = 0; i < DiagnosticsLog::capacity; ++i)
        write(i);
    std::size_t number = 0;
    for (auto _ : state)
        write(number++);
}
BENCHMARK(writeLine);

} // namespace
} // namespace larkspan
