// Reads the structure of a DXF file: sections, tables, blocks. What the records mean is the drawing builder's.
#pragma once

#include "drawing/dxf/group_source.h"
#include "drawing/file.h"
#include "drawing/io/drawing_builder.h"

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>

namespace drawing::dxf {

class Reader {
public:
  Reader(OdDbDatabase& database, GroupSource& source, TextDecoder& decoder, Report& report, const Budget& budget);

  // eOk, or why there is no drawing; `line` is where it ended.
  OdResult run();
  std::uint64_t line() const { return line_; }
  const std::string& limit() const { return builder_.limit(); } // which one ended the reading; "" for none

private:
  using Handler = void (Reader::*)();
  struct SectionHandler {
    const char* name;
    Handler handler;
  };
  static const SectionHandler kHandlers[];

  bool advance(); // to the next record; false at the end of the file or of the budget
  bool inSection();
  bool inRun(std::string_view end, std::initializer_list<std::string_view> larger);
  void readOutsideSections();
  void readSection();
  const SectionHandler* handlerOf(std::string_view name);
  void readHeader();
  void readTables();
  void readTable();
  void readBlocks();
  void readBlock();
  void readEntities();
  void readObjects();
  void correctVersion();
  void readOpaqueSection();
  void checkRest(std::size_t from); // of a record that has no more groups
  void checkEnd();

  OdDbDatabase& database_;
  GroupSource& source_;
  Report& report_;
  DrawingBuilder builder_;
  Record record_;
  std::uint64_t line_ = 0;
  bool again_ = false;                          // the record is read again by what encloses the run that it ended
  std::set<std::string, std::less<>> sections_; // read so far
  const SectionHandler* furthest_ = nullptr;    // of the sections read so far
  std::set<OdDb::SymbolTableKind> tables_;      // read so far
  bool sawSection_ = false;
  bool sawEnd_ = false;
};

} // namespace drawing::dxf
