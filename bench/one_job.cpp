// Runs one job of the benchmark so many times: for counting instructions from outside. Under callgrind with
// --instr-atstart=no only the job itself is counted, not what is made for it before.
// usage: one_job JOB ENTITIES TIMES     (or --jobs, which lists them)
#include "bench/drawings.h"

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#endif

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--jobs") == 0) {
    for (const std::string& name : bench::jobNames())
      std::puts(name.c_str());
    return 0;
  }
  const auto job = argc == 4 ? bench::makeJob(argv[1], std::strtoull(argv[2], nullptr, 10)) : nullptr;
  if (job == nullptr) {
    std::fputs("usage: one_job JOB ENTITIES TIMES\n", stderr);
    return 2;
  }
  std::size_t result = 0;
  CALLGRIND_START_INSTRUMENTATION;
  for (long i = 0; i < std::atol(argv[3]); ++i)
    result = job->run();
  CALLGRIND_STOP_INSTRUMENTATION;
  std::printf("%zu\n", result);
  return 0;
}
