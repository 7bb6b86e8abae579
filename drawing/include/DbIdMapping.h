// Results of cloning: pairs of source and clone.
#pragma once

#include "DbObjectId.h"
#include "RxObject.h"
#include "drawing/report.h"

#include <unordered_map>
#include <vector>

// An object of the source and what it became.
class MVDRAWING_API OdDbIdPair {
public:
  OdDbIdPair() = default;
  // Key: id in the source. Value: id of the clone, or (isCloned false) of an object of the target that is used instead.
  // Primary: passed to the operation by the caller, not cloned because another object depends on it.
  OdDbIdPair(OdDbObjectId key, OdDbObjectId value, bool cloned, bool primary)
      : key_(key), value_(value), cloned_(cloned), primary_(primary) {}
  OdDbObjectId key() const { return key_; }
  OdDbObjectId value() const { return value_; }
  bool isCloned() const { return cloned_; }
  bool isPrimary() const { return primary_; }

private:
  OdDbObjectId key_, value_;
  bool cloned_ = false, primary_ = false;
};

// A mapping: pairs in order of cloning, found by key. The drawings are not owned.
class MVDRAWING_API OdDbIdMapping : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbIdMapping);
  OdDbIdMapping() = default;

  // Target and source drawing and treatment of records of the same name, set by the operation.
  OdDbDatabase* destDb() const { return destination_; }
  void setDestDb(OdDbDatabase* database) { destination_ = database; }
  OdDbDatabase* origDb() const { return origin_; }
  void setOrigDb(OdDbDatabase* database) { origin_ = database; }
  OdDb::DuplicateRecordCloning duplicateRecordCloning() const { return duplicates_; }
  void setDuplicateRecordCloning(OdDb::DuplicateRecordCloning mode) { duplicates_ = mode; }

  // Limit of objects that the operation may create; beyond it nothing is cloned (eBudgetExceeded).
  std::uint64_t objectLimit() const { return objectLimit_; }
  void setObjectLimit(std::uint64_t limit) { objectLimit_ = limit; }

  // assign adds a pair or replaces the one of the same key; compute looks up pair.key() and sets the pair, false if
  // there is none; valueOf returns the value, null if there is none.
  void assign(const OdDbIdPair& pair);
  bool compute(OdDbIdPair& pair) const;
  OdDbObjectId valueOf(OdDbObjectId key) const;
  std::size_t size() const { return pairs_.size(); }
  const std::vector<OdDbIdPair>& pairs() const { return pairs_; }

private:
  std::vector<OdDbIdPair> pairs_;
  std::unordered_map<OdDbObjectId, std::size_t> index_;
  std::uint64_t objectLimit_ = drawing::Budget().objects;
  OdDbDatabase* destination_ = nullptr;
  OdDbDatabase* origin_ = nullptr;
  OdDb::DuplicateRecordCloning duplicates_ = OdDb::kDrcNotApplicable;
};
using OdDbIdMappingPtr = OdSmartPtr<OdDbIdMapping>;
