// Checks that hold for every operation on a drawing. They report through GoogleTest at the caller's place.
#pragma once

#include "DbDatabase.h"
#include "drawing/dump.h"

#include <functional>
#include <string>

namespace tests {

// The first lines in which two dumps differ, with the record they stand in; empty when they are equal.
std::string firstDifference(const std::string& before, const std::string& after);

// Runs the change as one step: undoing it gives the dump from before, redoing it the dump from after, and the change
// did change something.
void expectUndoRestores(OdDbDatabase& database, const std::function<void()>& change);

// Writing the drawing and reading it again gives an equal dump, handles included, in both forms of files. Answers what
// was read.
OdDbDatabasePtr expectRoundTrip(const OdDbDatabase& database);

// A copy of the drawing has the same dump and is saved as the same bytes, also when the drawing, of which no other
// pointer may exist, is closed.
void expectEqualClone(OdDbDatabasePtr database);

// The audit finds nothing.
void expectSound(OdDbDatabase& database);

// Leaves a gap in the numbering, so that a handle that was copied instead of translated names nothing.
void skewHandles(OdDbDatabase& database);

} // namespace tests
