// The block table, block definitions, and the BLOCK and ENDBLK entities around their contents.
#pragma once

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GePoint3d.h"
#include "drawing/detail/not_copied.h"
#include "drawing/xref.h"

class OdDbBlockBegin;
class OdDbBlockEnd;
class OdDbBlockTableRecord;
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;

// Names of model space and of the active paper space: "*Model_Space" and "*Paper_Space".
MVDRAWING_API extern const OdString modelSpaceStr;
MVDRAWING_API extern const OdString paperSpaceStr;

// The table of block definitions, model and paper space included.
class MVDRAWING_API OdDbBlockTable : public OdDbSymbolTable {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbBlockTable);
  OdDbBlockTable() { setKind(OdDb::kBlockTable); } // without records

  // The spaces of a resident table; null if there is none.
  OdDbObjectId getModelSpaceId() const;
  OdDbObjectId getPaperSpaceId() const;
};
using OdDbBlockTablePtr = OdSmartPtr<OdDbBlockTable>;

// Iterates the entities of a block in order of addition. Entities appended meanwhile are visited as well. An iterator
// refers to the block by id and is done if the block no longer exists.
class MVDRAWING_API OdDbObjectIterator : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbObjectIterator);
  // Position: start goes to the first entity, step to the next (false at the end); their arguments have no effect. The
  // id is null at the end.
  OdDbObjectIterator(OdDbObjectId block = OdDbObjectId(), bool skipErased = true) : iterator_(block, skipErased) {}
  void start(bool = true, bool = true) { iterator_.start(); }
  bool done() const { return iterator_.done(); }
  bool step(bool = true, bool = true) {
    iterator_.step();
    return !iterator_.done();
  }
  OdDbObjectId objectId() const { return iterator_.objectId(); }
  // The current entity; null if it does not open (see OdDbObjectId::safeOpenObject).
  OdDbEntityPtr entity(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

private:
  drawing::ObjectIterator iterator_;
};
using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;

// A block definition: an ordinary block, model or paper space, or an external reference. It owns its entities.
class MVDRAWING_API OdDbBlockTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbBlockTableRecord);
  OdDbBlockTableRecord() = default;

  // Whether references may be scaled differently along their axes.
  enum BlockScaling : std::int16_t { kAny = 0, kUniform = 1 };

  // Base point in block coordinates: the point that is at the insertion point of a reference.
  OdGePoint3d origin() const { return origin_; }
  void setOrigin(const OdGePoint3d& origin);
  // Description for people; path of the file of an external reference as the drawing stores it; insertion units;
  // whether references may be exploded. setBlockScaling always returns eOk. The preview is a bitmap as bytes.
  const OdString& comments() const { return comments_; }
  void setComments(const OdString& text);
  const OdString& pathName() const { return path_; }
  void setPathName(const OdString& path);
  OdDb::UnitsValue blockInsertUnits() const { return static_cast<OdDb::UnitsValue>(units_); }
  void setBlockInsertUnits(OdDb::UnitsValue units);
  BlockScaling blockScaling() const { return scalesUniformly_ ? kUniform : kAny; }
  OdResult setBlockScaling(BlockScaling scaling);
  bool explodable() const { return explodable_; }
  void setExplodable(bool explodable);
  const std::string& previewIcon() const { return preview_; }
  void setPreviewIcon(const std::string& bytes);

  // Anonymous: the name begins with an asterisk ("*U12") and it is neither a space nor a layout. Layout: the block of
  // model space or of a paper space layout.
  bool isAnonymous() const;
  bool isLayout() const;
  // The layout whose entities the block contains; null for other blocks.
  OdDbObjectId getLayoutId() const { return layout_; }
  void setLayoutId(OdDbObjectId layout);

  // External references, overlays included. An overlay is ignored where its drawing is an external reference itself.
  bool isFromExternalReference() const { return (flags_ & (kExternalReference | kOverlay)) != 0; }
  bool isFromOverlayReference() const { return (flags_ & kOverlay) != 0; }
  // Makes this an external reference to the file of that path, or an ordinary block if the path is empty.
  void setXref(const OdString& path, bool overlay = false);
  // Whether the user has unloaded the external reference; drawing::loadXrefs skips it then.
  bool isUnloaded() const { return unloaded_; }
  void setIsUnloaded(bool unloaded);
  // Result of the latest drawing::loadXrefs for this block.
  drawing::XrefStatus xrefStatus() const;
  // The external drawing, owned by this one until the next drawing::loadXrefs; null if it is not loaded. With
  // `includeUnresolved` also the drawing to which a cycle of references refers back.
  OdDbDatabase* xrefDatabase(bool includeUnresolved = false) const;

  // Makes a free entity resident, owned by this block, and lists it last; a resident one is only listed. Returns its
  // id. Throws OdError: eSelfReference for a reference that would make the block contain itself, eNotInDatabase for a
  // free block.
  OdDbObjectId appendEntity(OdDbEntity* entity);
  // Iterates from the first entity in order of addition; only `skipDeleted` has an effect.
  OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true, bool sorted = false) const;
  std::size_t numMembers() const { return members_.size(); } // erased entities included
  bool hasAttributeDefinitions() const;                      // constant ones included, erased ones not
  // Entities in draw order, bottom first, without erased ones: the order of the draw order table (id null if there is
  // none), else order of addition.
  std::vector<OdDbObjectId> drawOrder() const;
  OdDbObjectId getSortentsTableId() const;

  // References to this block anywhere in the drawing without erased ones, in order of addition; without `directOnly`
  // also references to the blocks that contain it at any depth. The time depends on the references of these blocks, not
  // on the size of the drawing. The second form appends and always returns eOk; `forceValidity` has no effect.
  OdDbObjectIdArray getBlockReferenceIds(bool directOnly = true) const;
  OdResult getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true, bool forceValidity = false) const;
  // Whether this is the target, or contains a reference to it at any depth. Each definition is visited once.
  bool reaches(OdDbObjectId target) const;
  // Adds the extents of the contents in block coordinates; eNotApplicable if nothing has extents.
  OdResult getGeomExtents(OdGeExtents3d& extents) const;

  // The BLOCK and ENDBLK entities.
  OdDbObjectId blockBeginId() const { return begin_; }
  OdDbObjectId blockEndId() const { return end_; }

  // -- SDK internals. --

  // List of the entities, erased ones included; attachEntity appends a resident entity without further effects.
  drawing::IdList* memberList() override { return &members_; }
  const drawing::IdList& members() const { return members_; }
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void attachEntity(OdDbObjectId id) { members_.push(id); }
  void afterLoad() override;
  // The BLOCK and ENDBLK entities and the layout of a copy: removed, set (null: unchanged), created if missing.
  void clearCopiedLinks();
  void setEnds(OdDbObjectId begin, OdDbObjectId end);
  void joinedTable() override { ensureEnds(); }
  void ensureEnds();
  // Properties that files store in the BLOCK entity instead of the table record: a second name if it differs, and the
  // flags as read, whose derived bits are recomputed when saving. applyBlockHeader merges them into the record after
  // reading.
  static const drawing::SubclassLayout& blockHeaderSubclass();
  const OdString& blockHeaderName() const { return blockHeaderName_; } // empty if it does not differ
  void dropBlockHeaderName() { blockHeaderName_.empty(); }
  std::int16_t derivedFlags() const;
  void applyBlockHeader();

  // Bits of the flags (group 70 of the BLOCK entity).
  static constexpr std::int16_t kAnonymousBit = 1, kHasAttributes = 2, kExternalReference = 4, kOverlay = 8;

  // References that have ever referred to this block, in any order and possibly repeated; the present ones are among
  // them. A block that was never referenced cannot be part of another one, so no cycle has to be searched when
  // references are appended to it. recordReference records one.
  const std::vector<OdDbObjectId>& referenceHistory() const { return referenceHistory_.ids; }
  bool wasReferenced() const { return !referenceHistory_.ids.empty(); }
  void recordReference(OdDbObjectId reference);

private:
  struct ReferenceHistory { // grows only
    std::vector<OdDbObjectId> ids;
    std::size_t distinct = 0; // number after duplicates were removed last
  };

  drawing::NotCopied<ReferenceHistory> referenceHistory_;
  drawing::NotCopied<drawing::IdList> members_;
  OdGePoint3d origin_;
  OdString comments_;
  OdString path_;
  std::string preview_;
  OdDbObjectId layout_;
  OdDbObjectId begin_;
  OdDbObjectId end_;
  OdString blockHeaderName_;
  std::int16_t blockHeaderFlags_ = 0;
  std::int16_t units_ = 0;
  bool explodable_ = true;
  bool scalesUniformly_ = false;
  bool unloaded_ = false;
};

// The BLOCK entity before the contents of a block.
class MVDRAWING_API OdDbBlockBegin : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbBlockBegin);
  OdDbBlockBegin() = default;
};

// The ENDBLK entity after the contents of a block.
class MVDRAWING_API OdDbBlockEnd : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbBlockEnd);
  OdDbBlockEnd() = default;
};
