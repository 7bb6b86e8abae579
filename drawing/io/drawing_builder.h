// Builds a drawing out of the records of a file, whatever its format: handles, owners, tables, blocks, sequences.
#pragma once

#include "DbBlockTable.h"
#include "drawing/io/object_reader.h"
#include "drawing/model/load_context.h"
#include "drawing/model/record.h"

#include <deque>
#include <map>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace drawing {

class DrawingBuilder {
public:
  DrawingBuilder(OdDbDatabase& database, TextDecoder& decoder, Report& report, const Budget& budget);

  OdDbDatabase& database() { return database_; }
  LoadContext& context() { return context_; }
  const std::string& limit() const { return limit_; } // the one that ended the reading; "" for none

  // Starts a record: issues name its kind and line from here on. The record is read where it is until the next start.
  // False once the budget is exceeded.
  bool start(const Record& record);
  void refuseSize(); // the record at hand is larger than any budget allows
  void report(const char* code, Severity severity, std::string found, std::string done);
  void reportSkipped(const char* code, std::string found); // the record at hand is lost

  // The record at hand, as what its place in the file says that it is.
  void addTableRecord(OdDb::SymbolTableKind kind, OdDbSymbolTable& table);
  OdDbBlockTableRecord& beginBlock();
  void endBlock(OdDbBlockTableRecord& block); // by its end record; without one nothing is called
  // An entity of the block, or of the one that it names as its owner when `block` is null.
  void addEntity(OdDbBlockTableRecord* block);
  void endSequence() { sequence_ = OdDbObjectId(); } // entities of another list follow
  void addObject();
  // A table, its own groups read from `head`: a record without its name.
  OdDbSymbolTable& addTable(OdDb::SymbolTableKind kind, const Record& head);

  // Blocks of R12 and earlier, which have no block table, take the order of their section.
  void orderBlocks();
  // When all records are read: what is missing is reported and made, and links are resolved. eBudgetExceeded if
  // definitions nest too deeply.
  OdResult finish();

private:
  bool exceeds(std::string limit);
  OdDbObjectId add(ReadObject& read, OdDbObjectId owner);
  bool addToSequence(ReadObject& read);
  OdDbBlockTableRecord& ownerOf(const ReadObject& read);
  OdDbBlockTableRecord& ensureBlock(const OdString& name);
  void registerRecord(OdDbSymbolTable& table, OdDbSymbolTableRecord& record);
  bool fillPlaceholder(OdDbSymbolTable& table);
  void addPlaceholder(OdDbBlockTableRecord& record);
  OdString blockName();
  OdDbBlockTableRecord* renamedBlock(const OdString& name);
  OdDbBlockTableRecord& blockOf(const ReadObject& begin);
  void reportWithoutHandle();
  void reportWithoutRecord(const OdString& name, const OdString& given);
  void reportBlocksWithoutRecord();

  OdDbDatabase& database_;
  Report& report_;
  const Budget& budget_;
  LoadContext context_;
  ObjectReader objects_;
  const Record* record_ = nullptr;
  std::map<OdString, std::deque<OdDbObjectId>> renamed_; // records whose name was taken, by the name in the file
  std::vector<OdDbObjectId> blocks_;                     // in the order of their section
  OdDbObjectId sequence_;                                // the entity whose attributes or vertices are being read
  std::unordered_set<OdDbObjectId> placeholders_;        // blocks read before their table record
  std::vector<std::pair<OdDbObjectId, std::uint64_t>> withoutRecord_; // among them, by the line of the block
  std::string limit_;
  std::uint64_t bytes_ = 0; // charged to the budget
  std::size_t withoutHandle_ = 0;
  std::uint64_t firstWithoutHandle_ = 0; // its line
};

} // namespace drawing
