// Writes a drawing as R12: tables without handles and markers, no objects, and in place of every kind of entity that
// came later what R12 can draw of it (see early_stand_ins.h). Everything changed or omitted is reported to the sink.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/dxf/r12/names.h"

namespace drawing::dxf {

class R12Writer {
public:
  // Substitutes get handles from the next one of the database on; `firstFree` is the one after the last, once run() was
  // called.
  R12Writer(const OdDbDatabase& database, GroupSink& sink, OdDbHandle firstFree);
  void run();
  OdDbHandle firstFree() const { return nextHandle_; }

  // For the substitutes: the sink, names, handles, and the entity that they replace.
  GroupSink& sink() { return sink_; }
  const OdDbDatabase& database() const { return database_; }
  // Starts an entity with the common properties of the one that it stands for. The first one has its handle.
  void begin(const char* kind, const OdDbEntity& source);
  void name(std::string_view kind, int code, std::string_view utf8); // a name that may have to change
  void text(int code, const OdString& value) { sink_.text(code, value); }

private:
  void section(const char* name, void (R12Writer::*write)());
  void header();
  void headerVariable(const OdDbHeader::Variable& variable);
  void tables();
  void table(OdDb::SymbolTableKind kind);
  void blocks();
  void block(const OdDbBlockTableRecord& block);
  void contents(const OdDbBlockTableRecord& block);
  void entities();
  void entity(OdDbObjectId id);
  void native(const OdDbObject& object);
  void parts(const OdDbEntity& owner);
  void record(const OdDbObject& object, const GroupList& groups, bool withHandle);
  void group(std::string_view kind, const GroupList& groups, const Group& group);
  void xData(const OdDbObject& object);
  void reportDictionaries();
  void lost(const OdDbObject& object, const char* code, Severity severity, std::string found, std::string done);

  const OdDbDatabase& database_;
  GroupSink& sink_;
  R12Names names_;
  OdDbHandle seed_;
  std::uint64_t nextHandle_;
  const OdDbEntity* begun_ = nullptr; // whose handle a substitute has
  bool inPaperSpace_ = false;
};

} // namespace drawing::dxf
