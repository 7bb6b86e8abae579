// Drawings of any size for measuring.
#pragma once

#include "DbDatabase.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace bench {

// A drawing with that many entities in model space: lines for the most part, circles, texts, references to a hundred
// small blocks, on twenty layers. The same for the same number.
OdDbDatabasePtr makeDrawing(std::size_t entities);
// As a text file of the newest version.
std::string makeFile(std::size_t entities);
OdDbObjectIdArray modelSpace(const OdDbDatabase& database);

// One job on a drawing of that size, with all that it needs made before. Each answers what keeps the work from being
// optimised away.
class Job {
public:
  virtual ~Job() = default;
  virtual std::size_t run() = 0;
};
// "read", "write", "make" (a block of everything), "clone" (into another drawing), "undo" (a move and its undo),
// "picture", "count" (the references to each of as many blocks), "insert" (the drawing as a block of another),
// "insert-many" (as many entities in small drawings), "wblock" (a block of that size as a drawing), "wblock-many"
// (small blocks, each as a drawing), and those over arrays of ids (id_jobs.cpp); null for other names.
std::unique_ptr<Job> makeJob(const std::string& name, std::size_t entities);
const std::vector<std::string>& jobNames();

} // namespace bench
