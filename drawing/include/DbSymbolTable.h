// Symbol tables and their records.
#pragma once

#include "DbObject.h"
#include "drawing/detail/member_list.h"
#include "drawing/detail/not_copied.h"

#include <string>
#include <unordered_map>

class OdDbSymbolTableRecord;
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;

// Iterates the records of a table in order of addition. Records added meanwhile are visited as well.
class MVDRAWING_API OdDbSymbolTableIterator : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbSymbolTableIterator);
  // Position, and the current record: a null id and pointer at the end; the pointer is null as well if the record does
  // not open.
  OdDbSymbolTableIterator(OdDbObjectId table = OdDbObjectId(), bool skipErased = true) : iterator_(table, skipErased) {}
  void start() { iterator_.start(); }
  bool done() const { return iterator_.done(); }
  void step() { iterator_.step(); }
  OdDbObjectId getRecordId() const { return iterator_.objectId(); }
  OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode mode = OdDb::kForRead) const;

private:
  drawing::ObjectIterator iterator_;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;

// A symbol table: records in order of addition, found by name without regard to case. The name of an erased record is
// free again. The kind of a table is set once, when it is created.
class MVDRAWING_API OdDbSymbolTable : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSymbolTable);
  OdDbSymbolTable() = default;

  // Which of the nine tables this is.
  OdDb::SymbolTableKind kind() const { return static_cast<OdDb::SymbolTableKind>(kind_); }
  void setKind(OdDb::SymbolTableKind kind) { kind_ = static_cast<std::int16_t>(kind); }

  // The record of that name, null if there is none. With `openErased` an erased record is found if no other has the
  // name.
  OdDbObjectId getAt(const OdString& name, bool openErased = false) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  // Makes the record resident, lists it last and adds its mandatory parts (the linetype of a layer, the ends of a
  // block). Returns its id, or null, with nothing changed, if a record that is not erased has the name. In the block
  // table an anonymous name of two characters ("*U", "*D") is completed by the next free number.
  OdDbObjectId add(OdDbSymbolTableRecord* record);
  // The same without adding mandatory parts: those of a clone are cloned with it.
  OdDbObjectId addClone(OdDbSymbolTableRecord* record);
  // Iterates from the first record; `atBeginning` has no effect.
  OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;
  std::size_t numMembers() const { return members_.size(); } // erased records included
  // A name that no record has: the given one, or with the first free of "-2", "-3" ... appended.
  OdString freeName(const OdString& wanted) const;

  // -- SDK internals. --

  // List of the records, erased ones included, and its changes: adopt lists a record that is resident already (false if
  // the name is in use), replaceMember exchanges an id; nameChanges and memberErased update the index of names.
  drawing::IdList* memberList() override { return &members_; }
  const drawing::IdList& members() const { return members_; }
  void membersChanged() override { indexed_ = false; }
  bool registerRecord(OdDbSymbolTableRecord* record);
  void replaceMember(OdDbObjectId old, const OdDbSymbolTableRecord& fresh);
  void nameChanges(const OdDbSymbolTableRecord& record, const OdString& from, const OdString& to);
  void memberErased(const OdDbSymbolTableRecord& record, bool erased);
  std::string dxfName() const override;

private:
  struct FoldHash {
    std::size_t operator()(const OdString& text) const;
  };
  struct FoldEqual {
    bool operator()(const OdString& a, const OdString& b) const;
  };
  void ensureIndex() const;
  OdString completeAnonymous(const OdString& name) const;

  drawing::NotCopied<drawing::IdList> members_;
  std::int16_t kind_ = OdDb::kNoTable;
  struct Index { // derived from the members
    std::unordered_map<OdString, OdDbObjectId, FoldHash, FoldEqual> byName;
    std::unordered_map<OdString, unsigned, FoldHash, FoldEqual> lastAnonymous;
    // Every lower number is in use; dropped when a name becomes free.
    std::unordered_map<OdString, unsigned, FoldHash, FoldEqual> nextFree;
  };
  mutable drawing::NotCopied<Index> index_;
  mutable bool indexed_ = false;
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;

// A record of a symbol table.
class MVDRAWING_API OdDbSymbolTableRecord : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSymbolTableRecord);
  OdDbSymbolTableRecord() = default;

  // Name. Setting throws OdError(eDuplicateRecordName) if another record of the table that is not erased has the name;
  // the name is not checked otherwise (drawing::nameFault does that).
  const OdString& getName() const { return name_; }
  void setName(const OdString& name);

  // Dependent: copied from an external reference, with the name of the reference, a vertical bar and its own name. Some
  // files state this only by the name. Resolved and referenced are flags as read.
  bool isDependent() const;
  bool isResolved() const { return (flags_ & kResolved) != 0; }
  bool isReferenced() const { return (flags_ & kReferenced) != 0; }

  // Flags as in files (group 70), whose other bits depend on the kind of record.
  std::int16_t flags() const { return flags_; }
  void setFlag(std::int16_t bit, bool on);
  std::string dxfName() const override;
  OdDb::SymbolTableKind tableKind() const; // the table that has records of this class; kNoTable for other classes

  // Called when the record has been added to a table: adds mandatory parts.
  virtual void joinedTable() {}

  // Bits of flags() that all records have.
  static constexpr std::int16_t kDependent = 16, kResolved = 32, kReferenced = 64;

protected:
  void afterErase(bool erasing) override;
  OdResult canUnerase() const override;
  OdString name_;
  std::int16_t flags_ = 0;
};
