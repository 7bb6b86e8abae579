#include "drawing/objects/layout_links.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"
#include "drawing/model/table_records.h"

#include <algorithm>
#include <unordered_map>

namespace drawing {

namespace {

class Links {
public:
  Links(OdDbDatabase& database, bool repair, const LayoutFaultHandler& onFault)
      : database_(database), repairs_(repair), onFault_(onFault) {}

  void run() {
    for (OdDbObjectId id : database_.allIds()) {
      if (auto* layout = getIf<OdDbLayout>(id); isAlive(layout))
        layouts_.push_back(layout);
    }
    blocks_ = recordsOf<OdDbBlockTableRecord>(database_, OdDb::kBlockTable);
    layoutCount_ = static_cast<int>(std::max<std::size_t>(layouts_.size(), 1)) - 1;
    for (OdDbLayout* layout : layouts_)
      bind(*layout);
    for (OdDbLayout* layout : layouts_) {
      if (blockOf_.count(layout) == 0)
        bindElsewhere(*layout);
    }
    for (OdDbBlockTableRecord* block : blocks_)
      checkBlock(*block);
  }

private:
  // The first layout that names a block has it, but one that the block names in return goes before others.
  void bind(OdDbLayout& layout) {
    auto* block = getIf<OdDbBlockTableRecord>(layout.getBlockTableRecordId());
    if (!isAlive(block))
      return;
    auto [entry, isFirst] = layoutOf_.emplace(block, &layout);
    if (!isFirst && block->getLayoutId() == layout.objectId()) {
      blockOf_.erase(entry->second);
      entry->second = &layout;
      isFirst = true;
    }
    if (isFirst)
      blockOf_[&layout] = block;
  }

  // A layout whose block no longer exists gets a block without a layout, else an empty one.
  void bindElsewhere(OdDbLayout& layout) {
    const auto free = std::find_if(blocks_.begin(), blocks_.end(), [this](const OdDbBlockTableRecord* block) {
      return isSpaceName(block->getName()) && layoutOf_.count(block) == 0;
    });
    OdDbBlockTableRecord* space = free != blocks_.end() ? *free : repairs_ ? makeSpace() : nullptr;
    if (space != nullptr) {
      layoutOf_[space] = &layout;
      blockOf_[&layout] = space;
    }
    if (repairs_) {
      const WriteScope scope(layout);
      layout.setBlockTableRecordId(space->objectId());
    }
    onFault_({LayoutFault::kLayoutWithoutBlock, layout,
              free != blocks_.end() ? "it is linked to a block without a layout" : "an empty block is created for it"});
  }

  OdDbBlockTableRecord* makeSpace() {
    auto& table = *getIf<OdDbBlockTable>(database_.getBlockTableId());
    OdString name = paperSpaceStr;
    for (unsigned n = 0; table.has(name); ++n)
      name.format(L"%s%u", paperSpaceStr.c_str(), n);
    OdDbBlockTableRecordPtr made = OdDbBlockTableRecord::createObject();
    made->setName(name);
    const WriteScope scope(table);
    table.add(made.get());
    blocks_.push_back(made.get());
    return made.get();
  }

  void checkBlock(OdDbBlockTableRecord& block) {
    const auto found = layoutOf_.find(&block);
    const OdDbObjectId wanted = found == layoutOf_.end() ? OdDbObjectId() : found->second->objectId();
    const bool makes = wanted.isNull() && isSpaceName(block.getName());
    if (!makes && wanted == block.getLayoutId())
      return;
    if (repairs_)
      repair(block, wanted, makes);
    const char* done = makes             ? "a layout is created"
                       : wanted.isNull() ? "its layout link is cleared"
                                         : "layout link restored";
    onFault_({makes || !wanted.isNull() ? LayoutFault::kSpaceWithoutLayout : LayoutFault::kBlockOfNoLayout, block, done,
              makes});
  }

  void repair(OdDbBlockTableRecord& block, OdDbObjectId layout, bool makes) {
    const WriteScope scope(block);
    if (!makes)
      block.setLayoutId(layout);
    else if (block.getName().iCompare(modelSpaceStr) == 0)
      makeLayoutFor(database_, block.objectId(), L"Model", 0);
    else
      makeLayoutFor(database_, block.objectId(), L"Layout1", ++layoutCount_);
  }

  OdDbDatabase& database_;
  bool repairs_;
  int layoutCount_ = 0; // that were there, and made
  const LayoutFaultHandler& onFault_;
  std::vector<OdDbLayout*> layouts_;
  std::vector<OdDbBlockTableRecord*> blocks_;
  std::unordered_map<const OdDbBlockTableRecord*, OdDbLayout*> layoutOf_;
  std::unordered_map<const OdDbLayout*, OdDbBlockTableRecord*> blockOf_;
};

// Page: A4, one to one, in millimetres.
void plotDefaults(OdDbLayout& layout, bool isModel) {
  GroupList& groups = layout.extrasForLoad().unmodelledGroups;
  groups.utf8(100, "AcDbPlotSettings");
  for (const int code : {2, 4, 6, 7})
    groups.utf8(code, code == 4 ? "ISO_A4_(210.00_x_297.00_MM)" : "");
  for (const int code : {40, 41, 42, 43})
    groups.real(code, 7.5);
  groups.real(44, 210);
  groups.real(45, 297);
  for (const int code : {46, 47, 48, 49, 140, 141})
    groups.real(code, 0);
  groups.real(142, 1);
  groups.real(143, 1);
  groups.integer(70, isModel ? 1712 : 688);
  groups.integer(72, 1);
  groups.integer(73, 0);
  groups.integer(74, 5);
  groups.integer(75, 16);
  groups.real(147, 1);
  groups.real(148, 0);
  groups.real(149, 0);
  groups.utf8(100, "AcDbLayout");
  for (const int code : {10, 20})
    groups.real(code, 0);
  groups.real(11, 420);
  groups.real(21, 297);
  for (const int code : {14, 24, 34, 15, 25, 35, 146, 13, 23, 33})
    groups.real(code, 0);
  groups.point(16, OdGePoint3d(1, 0, 0));
  groups.point(17, OdGePoint3d(0, 1, 0));
  groups.integer(76, 0);
}

} // namespace

void checkLayouts(OdDbDatabase& database, bool repair, const LayoutFaultHandler& onFault) {
  Links(database, repair, onFault).run();
}

void makeLayoutFor(OdDbDatabase& database, OdDbObjectId block, const OdString& name, int order) {
  auto* root = getIf<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  auto* layouts = root == nullptr ? nullptr : getIf<OdDbDictionary>(root->getAt(L"ACAD_LAYOUT"));
  if (layouts == nullptr)
    return;
  OdString free = name;
  for (unsigned n = 2; layouts->has(free); ++n)
    free.format(L"%s-%u", name.c_str(), n);
  auto& record = *getIf<OdDbBlockTableRecord>(block);
  auto* layout = new OdDbLayout;
  layout->setLayoutName(free);
  layout->setTabOrder(static_cast<std::int16_t>(order));
  layout->setBlockTableRecordId(block);
  plotDefaults(*layout, order == 0);
  const WriteScope scope(*layouts), blockScope(record);
  layouts->setAt(free, database.addObject(layout, layouts->objectId()));
  record.setLayoutId(layout->objectId());
}

} // namespace drawing
