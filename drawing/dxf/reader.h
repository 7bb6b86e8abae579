// Reads a drawing from groups.
#pragma once

#include "DbBlockTable.h"
#include "DbDxf.h"
#include "dxf/object_reader.h"
#include "dxf/pair_source.h"

#include <deque>
#include <map>
#include <set>
#include <unordered_set>

namespace drawing::dxf {

class Reader {
public:
  Reader(OdDbDatabase& database, PairSource& source, TextDecoder& decoder, Report& report, const Budget& budget);

  // eOk, or why there is no drawing; `line` is where it ended.
  OdResult run();
  std::uint64_t line() const { return line_; }
  const std::string& limit() const { return limit_; } // which one ended the reading; "" for none

private:
  using Handler = void (Reader::*)();
  struct SectionHandler {
    const char* name;
    Handler handler;
  };
  static const SectionHandler kHandlers[];

  bool exceeds(std::string limit);
  bool reckon();
  bool advance(); // to the next record; false at the end of the file or of the budget
  bool inSection();
  bool inRun(std::string_view end, std::initializer_list<std::string_view> larger);
  void readSection();
  void readHeader();
  void readTables();
  void readTable();
  void readTableRecord(OdDb::SymbolTableKind kind, OdDbSymbolTable& table);
  void readBlocks();
  void readBlock();
  void orderBlocks();
  void readEntities();
  void readObjects();
  void correctVersion();
  void readCarriedSection();

  std::uint64_t handleIn(const Record& record);
  OdDbObjectId addRead(ReadObject& read, OdDbObjectId owner);
  OdString blockName();
  OdDbBlockTableRecord* blockOf(const ReadObject& begin);
  void standIn(OdDbBlockTableRecord& record);
  void addEntity(OdDbObjectId fallbackOwner);
  bool addToSequence(ReadObject& read);
  OdDbBlockTableRecord* ownerOf(const ReadObject& read, OdDbObjectId fallback);
  OdDbBlockTableRecord& ensureSpace(const OdString& name);
  void settleMissing(OdDbSymbolTable& table, OdDbSymbolTableRecord& record);
  void checkRest(std::size_t from); // of a record that has no more groups
  bool fillStandIn(OdDbSymbolTable& table);
  void tellHandleless();
  void tellRecordless(const OdString& name, const OdString& given);
  void tellRecordlessBlocks();
  void passOver(const char* code, std::string found); // the record is lost
  void tell(const char* code, Severity severity, std::string found, std::string done);

  OdDbDatabase& database_;
  PairSource& source_;
  Report& report_;
  const Budget& budget_;
  LoadContext context_;
  ObjectReader objects_;
  Record record_;
  std::uint64_t line_ = 0;
  std::map<OdString, std::deque<OdDbObjectId>> renamed_; // records whose name was taken, by the name in the file
  std::vector<OdDbObjectId> blocks_;                     // in the order of their section
  OdDbObjectId sequence_;                                // the entity whose attributes or vertices come now
  std::unordered_set<OdDbObjectId> standIns_;            // blocks that came before their table record
  std::vector<std::pair<OdDbObjectId, std::uint64_t>> recordless_; // among them, by the line of the block
  std::set<std::string, std::less<>> sections_;                    // that came
  std::string limit_;
  std::uint64_t bytes_ = 0; // that were taken, as reckoned
  std::size_t handleless_ = 0;
  std::uint64_t firstHandleless_ = 0;        // its line
  bool again_ = false;                       // the record is to be met once more
  const SectionHandler* furthest_ = nullptr; // of the sections that came
  std::set<OdDb::SymbolTableKind> tables_;   // that came
  bool sawSection_ = false;
  bool sawEnd_ = false;
  OdResult result_ = eOk;
};

} // namespace drawing::dxf
