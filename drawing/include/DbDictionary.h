// Dictionaries, xrecords and the header.
#pragma once

#include "DbObject.h"
#include "drawing/detail/cache.h"

#include <string>
#include <unordered_map>
#include <vector>

class OdDbDictionary;
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;

class MVDRAWING_API OdDbDictionary : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbDictionary);
  OdDbDictionary() = default;

  struct Entry {
    OdString name;
    OdDbObjectId id;
  };

  // Null id when there is none. Names are found without regard to case.
  OdDbObjectId getAt(const OdString& name) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  // Puts the object under that name (making it resident and owned when it is free); an older entry of the name gives
  // way and its object is erased.
  OdDbObjectId setAt(const OdString& name, OdDbObject* object);
  // Puts a resident object under that name without touching its owner.
  void setAt(const OdString& name, OdDbObjectId id);
  OdDbObjectId remove(const OdString& name); // the object stays; its id, null when there was none
  OdString nameAt(OdDbObjectId id) const;    // empty when it is no entry
  std::size_t numEntries() const { return entries_.size(); }
  const std::vector<Entry>& entries() const { return entries_; } // in order of addition, erased objects included

  bool isTreatElementsAsHard() const { return hardOwner_; }
  void setTreatElementsAsHard(bool hard);
  // OdDb::DuplicateRecordCloning as files hold it.
  std::int16_t mergeStyle() const { return mergeStyle_; }

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

private:
  struct Index;
  const Index* index() const; // null while a walk over the entries is as quick
  std::size_t
  placeOf(const OdString& name) const; // of the first of that name; the number of entries when there is none

  std::vector<Entry> entries_;
  mutable drawing::Derived<Index> index_;
  bool awaitsObject_ = false; // while reading: the object of the last entry comes next
  std::int16_t mergeStyle_ = 1;
  bool hardOwner_ = false;
};

// A dictionary with an entry for every name that it does not hold.
class MVDRAWING_API OdDbDictionaryWithDefault : public OdDbDictionary {
public:
  ODDB_DECLARE_MEMBERS(OdDbDictionaryWithDefault);
  OdDbDictionaryWithDefault() = default;
  OdDbObjectId defaultId() const { return default_; }

private:
  OdDbObjectId default_;
};

// A list of tagged values under a name.
class MVDRAWING_API OdDbXrecord : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbXrecord);
  OdDbXrecord() = default;
  OdResBufPtr rbChain() const;
  void setFromRbChain(const OdResBuf* chain);
  const drawing::GroupList& groups() const { return groups_; }
  drawing::GroupList& groupsForWrite();
  std::int16_t mergeStyle() const { return mergeStyle_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  drawing::GroupList groups_;
  std::int16_t mergeStyle_ = 1;
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;

// A variable of the drawing that is kept in the dictionary of variables.
class MVDRAWING_API OdDbDictionaryVar : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbDictionaryVar);
  OdDbDictionaryVar() = default;
  const OdString& value() const { return value_; }
  void setValue(const OdString& value);

private:
  std::int16_t schema_ = 0;
  OdString value_;
};

// The drawing's header: variables in file order. Not part of any table; it has no handle.
class MVDRAWING_API OdDbHeader : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbHeader);
  OdDbHeader() = default;
  struct Variable {
    std::string name; // without the dollar sign
    drawing::GroupList groups;
  };
  const std::vector<Variable>& variables() const { return variables_; }
  const drawing::GroupList* find(std::string_view name) const;
  drawing::GroupList& at(std::string_view name); // makes it
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

private:
  std::vector<Variable> variables_;
  std::unordered_map<std::string, std::size_t> index_;
};
