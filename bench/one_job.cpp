// Runs one job of the benchmark so many times: for counting instructions from outside. What a job costs is the
// difference between two runs of it and one.
// usage: one_job JOB ENTITIES TIMES
#include "bench/drawings.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  const auto job = argc == 4 ? bench::makeJob(argv[1], std::strtoull(argv[2], nullptr, 10)) : nullptr;
  if (job == nullptr) {
    std::fputs("usage: one_job read|write|make|clone|undo ENTITIES TIMES\n", stderr);
    return 2;
  }
  std::size_t answer = 0;
  for (long i = 0; i < std::atol(argv[3]); ++i)
    answer = job->run();
  std::printf("%zu\n", answer);
  return 0;
}
