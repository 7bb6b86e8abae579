// Dictionaries, xrecords and the header of a drawing.
#pragma once

#include "DbObject.h"
#include "drawing/detail/cache.h"

#include <string>
#include <unordered_map>
#include <vector>

class OdDbDictionary;
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;

// A dictionary: objects by name. Names are found without regard to case.
class MVDRAWING_API OdDbDictionary : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDictionary);
  OdDbDictionary() = default;

  // A name and its object.
  struct Entry {
    OdString name;
    OdDbObjectId id;
  };

  // The object of that name, null if there is none; erased objects are not found.
  OdDbObjectId getAt(const OdString& name) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  // Sets the object of a name. A free object becomes resident, owned by the dictionary; another object of the name is
  // erased. Returns the id. Throws OdError(eNotInDatabase) for a free dictionary.
  OdDbObjectId setAt(const OdString& name, OdDbObject* object);
  // Sets the id of a name; neither object is changed.
  void setAt(const OdString& name, OdDbObjectId id);
  // Removes the entry, not the object; returns its id, null if there was none.
  OdDbObjectId remove(const OdString& name);
  OdString nameAt(OdDbObjectId id) const; // empty if the object is not an entry
  // Entries in order of addition, erased objects included.
  std::size_t numEntries() const { return entries_.size(); }
  const std::vector<Entry>& entries() const { return entries_; }

  // Whether files store the entries as hard (group 360) or soft ownership (group 350).
  bool isTreatElementsAsHard() const { return hardOwner_; }
  void setTreatElementsAsHard(bool hard);
  // OdDb::DuplicateRecordCloning as files store it (group 281).
  std::int16_t mergeStyle() const { return mergeStyle_; }

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

  // Reads and writes the groups of the entries.
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

private:
  struct Index;
  const Index* index() const; // null for few entries, where a search is as fast
  // Index of the first entry of that name; the number of entries if there is none.
  std::size_t indexOf(const OdString& name) const;

  std::vector<Entry> entries_;
  mutable drawing::Derived<Index> index_;
  bool awaitsObject_ = false; // reader state: the object of the last entry follows
  std::int16_t mergeStyle_ = 1;
  bool hardOwner_ = false;
};

// A dictionary with a default object for names that it does not contain.
class MVDRAWING_API OdDbDictionaryWithDefault : public OdDbDictionary {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDictionaryWithDefault);
  OdDbDictionaryWithDefault() = default;
  OdDbObjectId defaultId() const { return default_; } // getAt does not return it

private:
  OdDbObjectId default_;
};

// A list of groups as an object.
class MVDRAWING_API OdDbXrecord : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbXrecord);
  OdDbXrecord() = default;
  // The groups as a chain of values, null if there are none; setting copies the chain, null removes all groups.
  OdResBufPtr values() const;
  void setValues(const OdResBuf* chain);
  const drawing::GroupList& groups() const { return groups_; }
  drawing::GroupList& groupsForWrite();
  std::int16_t mergeStyle() const { return mergeStyle_; } // as in files (group 280)
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  drawing::GroupList groups_;
  std::int16_t mergeStyle_ = 1;
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;

// A variable that is stored in the dictionary of variables instead of the header.
class MVDRAWING_API OdDbDictionaryVar : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDictionaryVar);
  OdDbDictionaryVar() = default;
  // Value as text.
  const OdString& value() const { return value_; }
  void setValue(const OdString& value);

private:
  std::int16_t schema_ = 0;
  OdString value_;
};

// The header of a drawing: variables in file order. It has no owner and no handle. OdDbDatabase has functions for
// single variables.
class MVDRAWING_API OdDbHeader : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbHeader);
  OdDbHeader() = default;
  // A header variable.
  struct Variable {
    std::string name; // without the dollar sign
    drawing::GroupList groups;
  };
  // Variables by exact name: find returns null if there is none, at creates it.
  const std::vector<Variable>& variables() const { return variables_; }
  const drawing::GroupList* find(std::string_view name) const;
  drawing::GroupList& at(std::string_view name);
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

private:
  std::vector<Variable> variables_;
  std::unordered_map<std::string, std::size_t> index_;
};
