// Cloning objects, within a drawing and between drawings.
#pragma once

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "drawing/report.h"

#include <unordered_map>
#include <vector>

namespace drawing {

// A clone operation in three steps: plan the set of objects to clone (nothing has changed yet), make the copies in the
// order of the plan, then translate their references. A plan that cannot be carried out leaves the target as it was.
class Cloner {
public:
  Cloner(OdDbDatabase& source, OdDbDatabase& target, OdDbObjectId owner, OdDbIdMapping& mapping,
         OdDb::DuplicateRecordCloning duplicates);

  void setReport(Report* report) { report_ = report; }
  // The source is an external reference of that name: the objects cloned with it are named after it, NAME$0$WALLS, but
  // for what every drawing has. Records of the target stand for those of the source that `replacements` lists.
  void bindTo(const OdString& name, std::unordered_map<OdDbObjectId, OdDbObjectId> replacements) {
    boundTo_ = name;
    replacements_ = std::move(replacements);
  }
  // The contents of this block of the source become the owner's: if it is dynamic, its dynamic block data is cloned
  // with it and refers to the owner instead of the block.
  void includeDynamicBlockData(OdDbObjectId ofBlock) { contentsOf_ = ofBlock; }
  OdResult run(const std::vector<OdDbObjectId>& primaries);

private:
  enum class Action : char {
    kMake,    // a new object of the target
    kReplace, // an object of the target takes over the state
    kUse      // an object of the target stands for it
  };
  struct Item {
    OdDbObjectId source;
    Action action = Action::kMake;
    OdDbObjectId target;    // kReplace, kUse
    OdDbObjectId container; // kMake: the target's table or dictionary that takes it; null: where its owner is mapped to
    OdString name;          // in its table or dictionary
    bool primary = false;
    OdDbObjectId neededBy = {}; // of the source; its copy owns this one when the original has no owner
  };

  bool crosses() const { return &source_ != &target_; }
  bool closesCycle(const std::vector<OdDbObjectId>& primaries) const;
  bool isPlanned(OdDbObjectId id) const { return planned_.count(id) != 0; }
  void plan(Item item);
  void planTree(std::size_t item);
  void planReferences(const OdDbObject& object);
  void planDefinitionOfShape(const OdDbObject& object);
  void planShapeFiles(const OdDbObject& object);
  void planOverrides(const OdDbObject& object);
  void planNeeded(OdDbObjectId id);
  void planDynamicBlockData();
  void planRecord(OdDbSymbolTableRecord& record);
  void planEntry(OdDbObject& object);
  void removeMadeDictionaries();
  OdDbDictionary* counterpart(OdDbObjectId dictionary);
  bool isNameTaken(const OdDbSymbolTable& table, const OdString& name) const;
  OdString boundName(const OdDbSymbolTable& table, const OdDbSymbolTableRecord& record) const;
  OdString freeName(const OdDbSymbolTable& table, const OdDbSymbolTableRecord& record) const;
  bool canReplace(OdDbObjectId present) const;

  void make(const Item& item);
  void replace(const Item& item);
  void join(const Item& item, OdDbObject& copy);
  void translate();
  void ensureApplications(const OdDbObject& object);
  void reportRenamed(const OdString& from, const OdString& to);

  OdDbDatabase& source_;
  OdDbDatabase& target_;
  OdDbObjectId owner_;
  OdDbIdMapping& mapping_;
  OdDb::DuplicateRecordCloning duplicates_;
  Report* report_ = nullptr;
  std::vector<OdDbObjectId> madeDictionaries_; // while planning
  std::vector<Item> items_;
  std::unordered_map<OdDbObjectId, std::size_t> planned_;
  OdString boundTo_; // empty: nothing is bound
  std::unordered_map<OdDbObjectId, OdDbObjectId> replacements_;
  OdDbObjectId contentsOf_; // null: nothing but the primaries is asked for
  OdDbObjectId planning_;   // whose parts and needs are being planned
};

} // namespace drawing
