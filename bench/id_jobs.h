// Jobs of the functions that take arrays of object ids: as many ids as the size says.
#pragma once

#include "bench/drawings.h"

#include <map>

namespace bench {

using JobMaker = std::unique_ptr<Job> (*)(std::size_t);

const std::map<std::string, JobMaker>& idJobs();

} // namespace bench
