// Reading and writing drawing files.
//
// The reader decides by content, not by the file's name. It never throws: it answers a drawing with a report, or no
// drawing and the reason. Damage stays where it is; the report tells what was found and what was done.
#pragma once

#include "DbDatabase.h"
#include "drawing/versions.h"

#include <string>
#include <string_view>

namespace drawing {

struct ReadOptions {
  Budget budget;
  std::string encoding; // a code page that overrides what the file declares; empty: as declared
};
// Whether `encoding` may be that name: ANSI_936, DOS437, ISO8859-5, UTF-8 ..., case and punctuation do not matter.
MVDRAWING_API bool isKnownEncoding(std::string_view name);

struct ReadResult {
  OdDbDatabasePtr database; // null: refused
  OdResult result = eOk;
  std::string message; // why it was refused: one sentence naming file and, where there is one, line
  Report report;
};

MVDRAWING_API ReadResult readDrawing(const std::string& path, const ReadOptions& options = {});
// `name` stands for the file in messages. The bytes are needed only during the call.
MVDRAWING_API ReadResult readDrawingFromMemory(std::string_view content, const std::string& name = "memory",
                                               const ReadOptions& options = {});

struct WriteOptions {
  enum Form : std::uint8_t { AsRead, Text, Binary };
  Form form = AsRead;                               // a drawing that was not read is written as text
  OdDb::DwgVersion version = OdDb::kVersionUnknown; // unknown: the version the drawing came in
  bool asItIs = false;                              // multi-line attributes stand where the drawing has them
  bool refuseExisting = false;                      // do not overwrite; answers eFileAccessErr when the file is there
};

struct WriteResult {
  OdResult result = eOk;
  std::string message; // why it failed; the file that was there before is unchanged
  Report report;       // what the version could not hold
};

// Writes beside the file, syncs and renames: the old file survives any failure.
MVDRAWING_API WriteResult writeDrawing(const OdDbDatabase& database, const std::string& path,
                                       const WriteOptions& options = {});
MVDRAWING_API std::string writeDrawingToMemory(const OdDbDatabase& database, const WriteOptions& options = {},
                                               WriteResult* result = nullptr);

} // namespace drawing
