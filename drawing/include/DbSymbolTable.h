// Symbol tables and their records.
#pragma once

#include "DbObject.h"
#include "drawing/detail/member_list.h"

#include <string>
#include <unordered_map>

class OdDbSymbolTableRecord;
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;

class MVDRAWING_API OdDbSymbolTableIterator : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbSymbolTableIterator);
  OdDbSymbolTableIterator(OdDbObjectId table = OdDbObjectId(), bool skipErased = true) : walk_(table, skipErased) {}
  void start() { walk_.start(); }
  bool done() const { return walk_.done(); }
  void step() { walk_.step(); }
  OdDbObjectId getRecordId() const { return walk_.objectId(); }
  OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode mode = OdDb::kForRead) const;

private:
  drawing::ObjectIterator walk_;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;

// A table: records in order of addition, found by name without regard to case. An erased record frees its name.
class MVDRAWING_API OdDbSymbolTable : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbSymbolTable);
  OdDbSymbolTable() = default;

  OdDb::SymbolTableKind kind() const { return static_cast<OdDb::SymbolTableKind>(kind_); }
  void setKind(OdDb::SymbolTableKind kind) { kind_ = static_cast<std::int16_t>(kind); }

  // Null id when there is none. With `openErased` an erased record is found when no living one has the name.
  OdDbObjectId getAt(const OdString& name, bool openErased = false) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  // Null id when a living record has that name already. An anonymous name ("*U", "*D" ...) is completed by the next
  // free number.
  OdDbObjectId add(OdDbSymbolTableRecord* record);
  // The same without completing the record: what a clone needs comes along with it.
  OdDbObjectId addClone(OdDbSymbolTableRecord* record);
  OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;
  std::size_t numMembers() const { return members_.size(); } // erased ones included
  // A name that no record has: the given one, or with the first free of "-2", "-3" ... appended.
  OdString freeName(const OdString& wanted) const;

  drawing::IdList* memberList() override { return &members_; }
  const drawing::IdList& members() const { return members_; }
  void membersChanged() override { indexed_ = false; }
  // For readers: takes a record that is resident already. False when the name is taken.
  bool adopt(OdDbSymbolTableRecord* record);
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

  drawing::IdList members_;
  std::int16_t kind_ = OdDb::kNoTable;
  // Derived from the members; belongs to the object, not to its state.
  struct Index {
    Index() = default;
    Index(const Index&) {}
    Index& operator=(const Index&) { return *this; }
    std::unordered_map<OdString, OdDbObjectId, FoldHash, FoldEqual> byName;
    std::unordered_map<OdString, unsigned, FoldHash, FoldEqual> lastAnonymous;
    // Every lower number is taken; forgotten when a name goes.
    std::unordered_map<OdString, unsigned, FoldHash, FoldEqual> nextFree;
  };
  mutable Index index_;
  mutable bool indexed_ = false;
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;

class MVDRAWING_API OdDbSymbolTableRecord : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbSymbolTableRecord);
  OdDbSymbolTableRecord() = default;

  const OdString& getName() const { return name_; }
  // Throws OdError(eDuplicateRecordName) when another living record of the table has the name. No other name is
  // refused here: which names a user may give is the commands' business.
  void setName(const OdString& name);

  // Came from an external reference: its name is the reference's name, a vertical bar, its own name. Some files tell
  // it by the name alone.
  bool isDependent() const;
  bool isResolved() const { return (flags_ & kResolved) != 0; }
  bool isReferenced() const { return (flags_ & kReferenced) != 0; }

  std::int16_t flags() const { return flags_; }
  void setFlag(std::int16_t bit, bool on);
  std::string dxfName() const override;
  OdDb::SymbolTableKind tableKind() const;
  virtual void joinedTable() {} // called when a table has taken the record in

  static constexpr std::int16_t kDependent = 16, kResolved = 32, kReferenced = 64;

protected:
  void afterErase(bool erasing) override;
  OdResult mayComeBack() const override;
  OdString name_;
  std::int16_t flags_ = 0;
};
