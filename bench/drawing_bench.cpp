// Times of the main jobs on drawings of several sizes.
#include "bench/drawings.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
  for (const std::string& name : bench::jobNames()) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [name](benchmark::State& state) {
                                   const auto entities = static_cast<std::size_t>(state.range(0));
                                   const auto job = bench::makeJob(name, entities);
                                   for (auto _ : state)
                                     benchmark::DoNotOptimize(job->run());
                                   state.SetItemsProcessed(state.iterations() * state.range(0));
                                 })
        ->RangeMultiplier(10)
        ->Range(1000, 100000)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
