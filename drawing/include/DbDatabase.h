// A drawing in memory.
//
// A drawing owns its objects; ids name them. It is not thread-safe: one thread works on a drawing at a time, but
// different drawings may be worked on by different threads.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint3d.h"
#include "drawing/report.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class OdDbAnnotationScale;
class OdDbDatabase;
class OdDbEntity;
class OdDbHeader;
class OdDbIdMapping;
class OdDbSymbolTable;
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;

namespace drawing {
class XrefTable;

// What a file says of itself, kept so that it can be written again as it was.
struct FileFacts {
  OdDb::DwgVersion version = OdDb::kNewestVersion;
  bool binary = false;
  std::string codePage = "ANSI_1252"; // as the file names it
  std::vector<std::string> comments;  // the lines of comment at the top of the file
  std::string path;                   // where it was read from or saved to; empty for a new drawing
};

// A section that is carried whole (CLASSES, THUMBNAILIMAGE, ACDSDATA and any other).
struct CarriedSection {
  std::string name;
  GroupList groups;            // record starts (code 0) included
  bool madeForRecords = false; // by cloning; no file had it
};

} // namespace drawing

class MVDRAWING_API OdDbDatabase : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbDatabase);
  ~OdDbDatabase() override;

  // A drawing with what every drawing holds: the tables with their standard records, model space, one layout, the
  // header. Metric: millimetres. `empty` makes one without anything but its tables, for readers.
  static OdDbDatabasePtr create();
  static OdDbDatabasePtr createEmpty();

  // Objects. Adding makes a free object resident, gives it a handle (the given one when it is free) and answers its
  // id; the container itself is not told (symbol tables, dictionaries and blocks have their own add). The object is
  // open for write, on a locked layer too, until the pointer that brought it lets go.
  OdDbObjectId addOdDbObject(OdDbObject* object, OdDbObjectId owner = OdDbObjectId(), OdDbHandle handle = 0);
  OdDbObjectId getOdDbObjectId(OdDbHandle handle) const; // null when no object has that handle
  OdDbHandle handseed() const;
  void setHandseed(OdDbHandle next); // never lowers it below a handle in use
  std::size_t approxNumObjects() const;
  // All ids in order of arrival, erased objects and ids without object included.
  std::vector<OdDbObjectId> allIds() const;

  // Symbol tables and the named-objects dictionary. Ids are null only while a reader fills the drawing.
  OdDbObjectId getSymbolTableId(OdDb::SymbolTableKind kind) const { return tables_[kind]; }
  OdDbObjectId getBlockTableId() const { return tables_[OdDb::kBlockTable]; }
  OdDbObjectId getLayerTableId() const { return tables_[OdDb::kLayerTable]; }
  OdDbObjectId getLinetypeTableId() const { return tables_[OdDb::kLinetypeTable]; }
  OdDbObjectId getTextStyleTableId() const { return tables_[OdDb::kTextStyleTable]; }
  OdDbObjectId getDimStyleTableId() const { return tables_[OdDb::kDimStyleTable]; }
  OdDbObjectId getRegAppTableId() const { return tables_[OdDb::kRegAppTable]; }
  OdDbObjectId getUCSTableId() const { return tables_[OdDb::kUcsTable]; }
  OdDbObjectId getViewTableId() const { return tables_[OdDb::kViewTable]; }
  OdDbObjectId getViewportTableId() const { return tables_[OdDb::kViewportTable]; }
  OdDbObjectId getNamedObjectsDictionaryId() const { return namedObjects_; }
  OdDbObjectId getModelSpaceId() const; // null when the block table has none
  OdDbObjectId getPaperSpaceId() const; // of the layout that was last active
  OdDbObjectId getLayerZeroId() const;
  // A record by table and name, without regard to case; null when there is none.
  OdDbObjectId symbol(OdDb::SymbolTableKind kind, const OdString& name) const;

  // Header variables by name, without the dollar sign (INSUNITS, CLAYER, INSBASE ...). A variable that the drawing
  // does not hold reads as the given default. Setting needs no open.
  bool hasHeaderVar(std::string_view name) const;
  double headerReal(std::string_view name, double absent = 0) const;
  std::int64_t headerInt(std::string_view name, std::int64_t absent = 0) const;
  OdString headerText(std::string_view name) const;
  OdGePoint3d headerPoint(std::string_view name) const;
  // Groups of the variable, null when it is not there.
  const drawing::GroupList* headerVar(std::string_view name) const;
  void setHeaderReal(std::string_view name, int code, double value);
  void setHeaderInt(std::string_view name, int code, std::int64_t value);
  void setHeaderText(std::string_view name, int code, const OdString& value);
  void setHeaderPoint(std::string_view name, const OdGePoint3d& value);
  void setHeaderVar(std::string_view name, const drawing::GroupList& groups);
  std::vector<std::string> headerNames() const; // in file order

  OdDb::UnitsValue getINSUNITS() const;
  void setINSUNITS(OdDb::UnitsValue units);
  OdGePoint3d getINSBASE() const;
  void setINSBASE(const OdGePoint3d& base);
  OdDbObjectId getCLAYER() const; // layer 0 when the named one is missing
  OdResult setCLAYER(OdDbObjectId layer);
  // The current annotation scale; null when the drawing names none that it holds.
  OdSmartPtr<OdDbAnnotationScale> cannoscale() const;
  OdResult setCannoscale(const OdString& scaleName); // eKeyNotFound when the scale list has no such scale
  // Variables that files keep in a dictionary of their own instead of the header; empty when there is none.
  OdString dictionaryVar(const OdString& name) const;
  void setDictionaryVar(const OdString& name, const OdString& value);

  // Cloning. `ids` in order become members of `owner` (a block record or a dictionary) with all they own. Both answer
  // eOk, or the reason why nothing was cloned.
  OdResult deepCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                            bool deferTranslation = false);
  // Called on the source drawing; `owner` belongs to the target. Records that the clones need come along.
  OdResult wblockCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                              OdDb::DuplicateRecordCloning duplicates, bool deferTranslation = false);
  // Makes or refills the block `blockName` of this drawing with a clone of the source's model space, whose base point
  // becomes the block's origin. A record that has the name keeps its id; a new one takes scaling, description and
  // annotative properties that stand with the source's model space, and both the behaviour of a dynamic block. What the
  // clones need comes along; records of the same name, nested definitions among them, stay as this drawing has them. A
  // nested definition that would make the block contain itself comes in under a free name. Relative paths of external
  // references are turned from the folder of the source to that of this drawing. The source stays as it was in any
  // case. Null id, and nothing changed, for no name, no source or this drawing itself, for the name of a space or an
  // external reference, and when the drawing grows beyond the limits of cloning.
  OdDbObjectId insert(const OdString& blockName, OdDbDatabase* source, bool preserveSource = true);
  // What the latest insert told: "clone.renamed" for each definition that came in under another name.
  const drawing::Report& insertReport() const { return insertReport_; }

  // Removes from `ids` what cannot be purged: what the drawing needs, and what anything uses that is not purged along.
  // Erases nothing; see drawing/purge.h for the reasons.
  OdResult purge(OdDbObjectIdArray& ids);

  // Undo. startUndoRecord sets a mark; undo takes back everything since the last mark; redo brings it back. Ids
  // survive both. Nothing is recorded before the first mark or while recording is off.
  void startUndoRecord();
  bool hasUndo() const;
  bool hasRedo() const;
  OdResult undo();
  OdResult redo();
  void rollback(); // undo without a way back: a command that failed
  void disableUndoRecording(bool disable);
  // Gives the objects the state that they had at the last mark; the rest of the step stays.
  void restoreFromUndo(const OdDbObjectIdArray& ids);
  std::uint64_t changeCount() const; // grows with every recorded change; tells whether a drawing was modified

  // Brackets around a longer change of the drawing; they nest.
  void startTransaction();
  void endTransaction();
  int transactionDepth() const { return transactions_; }

  // The picture that file dialogs show of the drawing: a device-independent bitmap from its header on, without the head
  // of a file. It belongs to the file, not to the drawing's state: undo leaves it alone. A picture that came with the
  // file is written again; one that was set, only when it is to be retained. Empty, or null, is none.
  // eInvalidInput for more bytes than a file can tell (2^31 - 1).
  OdResult setThumbnailBitmap(const void* bitmap, std::size_t size);
  std::string thumbnailBitmap() const; // empty when there is none that can be read
  void setRetainOriginalThumbnailBitmap(bool retain) { retainsThumbnail_ = retain; }
  bool retainOriginalThumbnailBitmap() const { return retainsThumbnail_; }
  bool isThumbnailWritten() const { return retainsThumbnail_ || !hasOwnThumbnail_; }

  drawing::FileFacts& facts() { return facts_; }
  const drawing::FileFacts& facts() const { return facts_; }
  std::vector<drawing::CarriedSection>& carriedSections() { return carriedSections_; }
  const std::vector<drawing::CarriedSection>& carriedSections() const { return carriedSections_; }

  // -- For the SDK's own machinery. --
  drawing::Store& store() { return *store_; }
  const drawing::Store& store() const { return *store_; }
  drawing::Undo& undoLog() { return *undo_; }
  drawing::XrefTable& xrefs() { return *xrefs_; }
  const drawing::XrefTable& xrefs() const { return *xrefs_; }
  void adoptTable(OdDb::SymbolTableKind kind, OdDbObjectId id) { tables_[kind] = id; }
  void adoptNamedObjects(OdDbObjectId id) { namedObjects_ = id; }
  OdDbHeader& header() const;

protected:
  OdDbDatabase();

private:
  std::unique_ptr<drawing::Store> store_;
  std::unique_ptr<drawing::Undo> undo_;
  std::unique_ptr<drawing::XrefTable> xrefs_;
  OdDbObjectId tables_[OdDb::kSymbolTableCount];
  OdDbObjectId namedObjects_;
  OdDbObjectId header_;
  drawing::FileFacts facts_;
  std::vector<drawing::CarriedSection> carriedSections_;
  drawing::Report insertReport_;
  int transactions_ = 0;
  bool hasOwnThumbnail_ = false; // set since the drawing was read
  bool retainsThumbnail_ = false;
};
