// What a clone operation made of what.
#pragma once

#include "DbObjectId.h"
#include "RxObject.h"
#include "drawing/report.h"

#include <unordered_map>
#include <vector>

class MVDRAWING_API OdDbIdPair {
public:
  OdDbIdPair() = default;
  OdDbIdPair(OdDbObjectId key, OdDbObjectId value, bool cloned, bool primary)
      : key_(key), value_(value), cloned_(cloned), primary_(primary) {}
  OdDbObjectId key() const { return key_; }
  OdDbObjectId value() const { return value_; }
  bool isCloned() const { return cloned_; }   // false: an object of the target that stands for the key
  bool isPrimary() const { return primary_; } // asked for by the caller, not come along

private:
  OdDbObjectId key_, value_;
  bool cloned_ = false, primary_ = false;
};

// Pairs in order of cloning.
class MVDRAWING_API OdDbIdMapping : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbIdMapping);
  OdDbIdMapping() = default;

  OdDbDatabase* destDb() const { return destination_; }
  void setDestDb(OdDbDatabase* database) { destination_ = database; }
  OdDbDatabase* origDb() const { return origin_; }
  void setOrigDb(OdDbDatabase* database) { origin_ = database; }
  OdDb::DuplicateRecordCloning duplicateRecordCloning() const { return duplicates_; }
  void setDuplicateRecordCloning(OdDb::DuplicateRecordCloning mode) { duplicates_ = mode; }

  // The most objects that the operation may make; beyond it nothing is cloned (eBudgetExceeded).
  std::uint64_t objectLimit() const { return objectLimit_; }
  void setObjectLimit(std::uint64_t limit) { objectLimit_ = limit; }

  void assign(const OdDbIdPair& pair);          // a later pair of the same key replaces the earlier one
  bool compute(OdDbIdPair& pair) const;         // by pair.key(); false when it is not there
  OdDbObjectId valueOf(OdDbObjectId key) const; // null when it is not there
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
