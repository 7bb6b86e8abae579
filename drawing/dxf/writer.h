// Writes a drawing as groups, in the order in which files hold them.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/io/version_filter.h"

namespace drawing::dxf {

// Entities of model space, and of the paper space that was last active, stand in their own section.
bool isInEntitiesSection(const OdDbBlockTableRecord& block);

class Writer {
public:
  Writer(const OdDbDatabase& database, GroupSink& sink);
  void run();

private:
  void section(const char* name, void (Writer::*contents)());
  void header();
  void headerVariable(const OdDbHeader::Variable& variable);
  void tables();
  void table(OdDb::SymbolTableKind kind);
  void blocks();
  void block(const OdDbBlockTableRecord& record);
  void entities();
  void objects();
  void opaqueSections(bool beforeTables);
  // An entity with what belongs to its sequence.
  void entity(OdDbObjectId id);
  void blockHeader(const OdDbBlockTableRecord& record);

  bool isWritten(OdDbObjectId id) const; // lives, and the version can hold it

  const OdDbDatabase& database_;
  GroupSink& to_;
  OmittedObjects omitted_;
  VersionFilter filter_;
  GroupSink& sink_;     // the filter, where the file's version is not the drawing's
  OdString layoutName_; // of the block whose entities are being written
  bool inPaperSpace_ = false;
};

// The record of one object: start, handle, attached data, owner, sections, extended data.
class RecordWriter {
public:
  explicit RecordWriter(GroupSink& sink) : sink_(sink) {}
  void preamble(const OdDbObject& object, bool withHandle = true);
  void xData(const OdDbObject& object);
  void whole(const OdDbObject& object);

private:
  GroupSink& sink_;
};

} // namespace drawing::dxf
