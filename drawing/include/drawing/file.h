// Reading and writing drawing files.
//
// The reader decides by content, not by the name of the file. It never throws: it returns a drawing with a report, or
// no drawing and the reason. Damage is contained; the report states what was found and what was done. Drawings may be
// read and written by several threads at once, each drawing by one.
#pragma once

#include "DbDatabase.h"
#include "drawing/versions.h"

#include <string>
#include <string_view>

namespace drawing {

// Options of reading.
struct ReadOptions {
  Budget budget;
  std::string encoding; // code page instead of the one that the file declares; empty: as declared
};
// Whether a name is accepted as `encoding`: ANSI_936, DOS437, ISO8859-5, UTF-8 ...; case and punctuation do not matter.
MVDRAWING_API bool isKnownEncoding(std::string_view name);

// Result of reading.
struct ReadResult {
  OdDbDatabasePtr database; // null if the file was refused
  OdResult result = eOk;    // the reason: eFileNotFound, eFileAccessErr, eNotADrawing, eUnsupportedFileFormat ...
  std::string message;      // the reason as one sentence with the name of the file and, if there is one, the line
  Report report;
};

// Reads a drawing from a file, or from bytes that are needed during the call only; `name` is used in messages. The new
// drawing has no undo steps.
MVDRAWING_API ReadResult readDrawing(const std::string& path, const ReadOptions& options = {});
MVDRAWING_API ReadResult readDrawingFromMemory(std::string_view content, const std::string& name = "memory",
                                               const ReadOptions& options = {});

// Options of writing.
struct WriteOptions {
  // Form of the file.
  enum Form : std::uint8_t { kAsRead, kText, kBinary };
  Form form = kAsRead;                              // a drawing that was not read is written as text
  OdDb::DwgVersion version = OdDb::kVersionUnknown; // unknown: the version that was read
  bool attributesAsStored = false;                  // stores multiline attributes where the drawing has them
  bool refuseExisting = false;                      // does not overwrite: eFileAccessErr if the file exists
};

// Result of writing.
struct WriteResult {
  OdResult result = eOk;
  std::string message; // the reason of a failure; an existing file is unchanged then
  Report report;       // what the version could not represent
};

// Writes a drawing to a file by replaceFile, so that an existing file survives any failure, or to a string, empty on
// failure. The drawing is not changed.
MVDRAWING_API WriteResult writeDrawing(const OdDbDatabase& database, const std::string& path,
                                       const WriteOptions& options = {});
MVDRAWING_API std::string writeDrawingToMemory(const OdDbDatabase& database, const WriteOptions& options = {},
                                               WriteResult* result = nullptr);

} // namespace drawing
