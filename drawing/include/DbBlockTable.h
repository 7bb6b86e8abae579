// The block table, block definitions and the ends of their contents.
#pragma once

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GePoint3d.h"
#include "drawing/xref.h"

class OdDbBlockBegin;
class OdDbBlockEnd;
class OdDbBlockTableRecord;
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;

// Names of the spaces.
MVDRAWING_API extern const OdString modelSpaceStr;
MVDRAWING_API extern const OdString paperSpaceStr;

class MVDRAWING_API OdDbBlockTable : public OdDbSymbolTable {
public:
  ODDB_DECLARE_MEMBERS(OdDbBlockTable);
  OdDbBlockTable() { setKind(OdDb::kBlockTable); }
  OdDbObjectId getModelSpaceId() const;
  OdDbObjectId getPaperSpaceId() const;
};
using OdDbBlockTablePtr = OdSmartPtr<OdDbBlockTable>;

// Walks the contents of a block in order of addition.
class MVDRAWING_API OdDbObjectIterator : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbObjectIterator);
  OdDbObjectIterator(OdDbObjectId block = OdDbObjectId(), bool skipErased = true) : walk_(block, skipErased) {}
  void start(bool = true, bool = true) { walk_.start(); }
  bool done() const { return walk_.done(); }
  bool step(bool = true, bool = true) {
    walk_.step();
    return !walk_.done();
  }
  OdDbObjectId objectId() const { return walk_.objectId(); }
  // Null when it does not open (see OdDbObjectId::safeOpenObject).
  OdDbEntityPtr entity(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

private:
  drawing::ObjectIterator walk_;
};
using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;

// A block definition, a space, or an external reference.
class MVDRAWING_API OdDbBlockTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbBlockTableRecord);
  OdDbBlockTableRecord() = default;

  enum BlockScaling : std::int16_t { kAny = 0, kUniform = 1 };

  // The point of the contents that a reference puts at its insertion point, in block coordinates.
  OdGePoint3d origin() const { return origin_; }
  void setOrigin(const OdGePoint3d& origin);
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

  bool isAnonymous() const;
  bool isLayout() const;
  // External references, overlays among them. An overlay is not followed where its drawing is referred to itself.
  bool isFromExternalReference() const { return (flags_ & (kExternalReference | kOverlay)) != 0; }
  bool isFromOverlayReference() const { return (flags_ & kOverlay) != 0; }
  // Makes this an external reference of the path, or an ordinary block again when it is empty.
  void setXref(const OdString& path, bool overlay = false);
  bool isUnloaded() const { return unloaded_; } // the user does not want its drawing
  void setIsUnloaded(bool unloaded);
  // What came of the latest drawing::loadXrefs.
  drawing::XrefStatus xrefStatus() const;
  // The external drawing, which lives as long as this one holds it; null when it is not loaded. With
  // `includeUnresolved` also the drawing that a cycle of references leads back to.
  OdDbDatabase* xrefDatabase(bool includeUnresolved = false) const;
  bool hasAttributeDefinitions() const; // constant ones included
  OdDbObjectId getLayoutId() const { return layout_; }
  void setLayoutId(OdDbObjectId layout);
  const std::string& previewIcon() const { return preview_; } // bitmap bytes
  void setPreviewIcon(const std::string& bytes);

  // Appending makes the entity resident and owned by this block. Throws OdError(eSelfReference) for a reference that
  // would make the block contain itself.
  OdDbObjectId appendOdDbEntity(OdDbEntity* entity);
  OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true, bool sorted = false) const;
  std::size_t numMembers() const { return members_.size(); } // erased ones included
  // The contents in drawing order: the draw order table's where there is one, else order of addition.
  std::vector<OdDbObjectId> drawOrder() const;
  OdDbObjectId getSortentsTableId() const; // null when there is none

  // References to this block anywhere in the drawing, erased ones excluded, in order of addition; without `directOnly`
  // also those to the blocks that show it through others. The time goes with the references of these blocks, not with
  // the drawing. The second one appends; every drawing is loaded whole, so `forceValidity` changes nothing.
  OdDbObjectIdArray getBlockReferenceIds(bool directOnly = true) const;
  OdResult getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true, bool forceValidity = false) const;
  // Whether this is the target, or refers to it through any number of definitions. Each definition is visited once.
  bool leadsTo(OdDbObjectId target) const;
  // Extents of the contents in block coordinates; invalid when nothing has any.
  OdResult getGeomExtents(OdGeExtents3d& extents) const;

  OdDbObjectId blockBeginId() const { return begin_; }
  OdDbObjectId blockEndId() const { return end_; }

  // -- For the SDK's own machinery. --
  drawing::IdList* memberList() override { return &members_; }
  const drawing::IdList& members() const { return members_; }
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void adoptEntity(OdDbObjectId id) { members_.push(id); }
  void afterLoad() override;
  void adoptCopy(); // a copy has no ends and no layout of its own yet
  void adoptEnds(OdDbObjectId begin, OdDbObjectId end);
  void joinedTable() override { ensureEnds(); }
  void ensureEnds(); // makes the BLOCK and ENDBLK objects when they are missing
  // What files hold in the block's head instead of its table record.
  static const drawing::Section& headSection();
  OdString nameInHead_;        // a second name in the head, when it differs
  std::int16_t headFlags_ = 0; // as read; bits that are derived are recomputed at save
  std::int16_t derivedFlags() const;
  void takeHead(); // after reading: flags into flags_, no second name that is the first

  static constexpr std::int16_t kAnonymousBit = 1, kHasAttributes = 2, kExternalReference = 4, kOverlay = 8;

  // The references that ever showed this block, in no order and some of them more than once: those that show it now are
  // among them. A block that nothing ever showed cannot be part of another, so adding references to it needs no walk
  // over definitions.
  const std::vector<OdDbObjectId>& everShownBy() const { return everShownBy_.ids; }
  bool wasReferenced() const { return !everShownBy_.ids.empty(); }
  void noteShownBy(OdDbObjectId reference);

private:
  // Grows only: neither copied nor undone.
  struct EverShownBy {
    EverShownBy() = default;
    EverShownBy(const EverShownBy&) {}
    EverShownBy& operator=(const EverShownBy&) { return *this; }
    std::vector<OdDbObjectId> ids;
    std::size_t distinct = 0; // when they were last made so
  };

  EverShownBy everShownBy_;
  drawing::IdList members_;
  OdGePoint3d origin_;
  OdString comments_;
  OdString path_;
  std::string preview_;
  OdDbObjectId layout_;
  OdDbObjectId begin_;
  OdDbObjectId end_;
  std::int16_t units_ = 0;
  bool explodable_ = true;
  bool scalesUniformly_ = false;
  bool unloaded_ = false;
};

// The BLOCK entity in front of a block's contents.
class MVDRAWING_API OdDbBlockBegin : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbBlockBegin);
  OdDbBlockBegin() = default;
};

// The ENDBLK entity behind them.
class MVDRAWING_API OdDbBlockEnd : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbBlockEnd);
  OdDbBlockEnd() = default;
};
