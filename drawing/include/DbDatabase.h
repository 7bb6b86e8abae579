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

// Properties of the file that the drawing was read from, with which it is saved by default.
struct FileInfo {
  OdDb::DwgVersion version = OdDb::kNewestVersion;
  bool binary = false;
  std::string codePage = "ANSI_1252"; // as the file names it
  std::vector<std::string> comments;  // comment lines at the top of the file
  std::string path;                   // file that it was read from or saved to; empty for a new drawing
};

// A section of the file that is preserved as a whole (CLASSES, THUMBNAILIMAGE, ACDSDATA and any other).
struct OpaqueSection {
  std::string name;
  GroupList groups;            // record starts (code 0) included
  bool madeForRecords = false; // created by cloning; not in a file
};

} // namespace drawing

// A drawing: objects, symbol tables, header, cloning, undo. It lives as long as a pointer holds it; closing it deletes
// its objects, and its ids do not open any more.
class MVDRAWING_API OdDbDatabase : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbDatabase);
  ~OdDbDatabase() override;

  // create: a drawing with the mandatory contents of every drawing, in millimetres: symbol tables with their standard
  // records, model space, one layout, header. createEmpty: a drawing with an empty header and nothing else, for
  // readers.
  static OdDbDatabasePtr create();
  static OdDbDatabasePtr createEmpty();
  // An independent copy with the same handles, which is saved as the same file: objects that are not erased, header,
  // file properties and preserved sections. It has no steps to undo, and its external references are not loaded.
  OdDbDatabasePtr clone() const;

  // Makes a free object resident: the drawing owns it from now on. It gets the given handle, or a new one if that is 0
  // or in use. Returns its id. Does not list the object in the container: symbol tables, dictionaries and blocks have
  // functions for that. The object is open for write, even on a locked layer, until its last pointer is released.
  // Throws OdError(eWrongDatabase) for a resident object.
  OdDbObjectId addObject(OdDbObject* object, OdDbObjectId owner = OdDbObjectId(), OdDbHandle handle = 0);
  OdDbObjectId objectIdOf(OdDbHandle handle) const; // null if no object has that handle; erased objects have one
  // Next free handle; setting it never lowers it.
  OdDbHandle handseed() const;
  void setHandseed(OdDbHandle next);
  // Number of ids, and all ids in order of addition, with erased objects and ids without an object.
  std::size_t objectCount() const;
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
  // Records that are not erased, null if there is none: by table and name (case does not matter), model space, the
  // paper space of the layout that was active last, layer 0.
  OdDbObjectId symbol(OdDb::SymbolTableKind kind, const OdString& name) const;
  OdDbObjectId getModelSpaceId() const;
  OdDbObjectId getPaperSpaceId() const;
  OdDbObjectId getLayerZeroId() const;

  // Header variables by name, without the dollar sign (INSUNITS, CLAYER, INSBASE ...); the case of names matters. A
  // variable that the drawing does not have, or that has a value of another kind, is read as `absent`, empty text or
  // (0, 0, 0). Setters create or replace the variable with a value under that group code; they do not check it, need no
  // opening, and are recorded for undo.
  bool hasHeaderVar(std::string_view name) const;
  double headerReal(std::string_view name, double absent = 0) const;
  std::int64_t headerInt(std::string_view name, std::int64_t absent = 0) const;
  OdString headerText(std::string_view name) const;
  OdGePoint3d headerPoint(std::string_view name) const;
  const drawing::GroupList* headerVar(std::string_view name) const; // its groups; null if the variable does not exist
  void setHeaderReal(std::string_view name, int code, double value);
  void setHeaderInt(std::string_view name, int code, std::int64_t value);
  void setHeaderText(std::string_view name, int code, const OdString& value);
  void setHeaderPoint(std::string_view name, const OdGePoint3d& value);
  void setHeaderVar(std::string_view name, const drawing::GroupList& groups);
  std::vector<std::string> headerNames() const; // in file order

  // Insertion units; insertion base point in world coordinates; current layer (layer 0 if the named one is missing).
  // Setting the layer returns eInvalidInput unless the id is a layer of this drawing that is not erased.
  OdDb::UnitsValue getINSUNITS() const;
  void setINSUNITS(OdDb::UnitsValue units);
  OdGePoint3d getINSBASE() const;
  void setINSBASE(const OdGePoint3d& base);
  OdDbObjectId getCLAYER() const;
  OdResult setCLAYER(OdDbObjectId layer);
  // The current annotation scale as a copy; null if the drawing names none or one that is not in its scale list.
  // Setting returns eKeyNotFound if the scale list has no such scale; case does not matter.
  OdSmartPtr<OdDbAnnotationScale> cannoscale() const;
  OdResult setCannoscale(const OdString& scaleName);
  // Variables that files store in a dictionary instead of the header; empty if there is none. Setting throws
  // OdError(eNotInDatabase) for a drawing without a named-objects dictionary (createEmpty).
  OdString dictionaryVar(const OdString& name) const;
  void setDictionaryVar(const OdString& name, const OdString& value);

  // Cloning within the drawing. `ids` in order become members of `owner` (a block record or a dictionary) with all that
  // they own; references among them are translated, and `mapping` receives a pair for each clone. Returns eOk, or the
  // reason why nothing was cloned: eNullObjectId; eInvalidOwnerObject for an owner that does not exist; eWrongDatabase
  // for ids of another drawing; eWasErased; eSelfReference if a block would contain itself; eBudgetExceeded for more
  // objects than mapping.objectLimit(). `deferTranslation` has no effect.
  OdResult deepCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                            bool deferTranslation = false);
  // Cloning into another drawing: called on the source; `owner` belongs to the target. Records that the clones depend
  // on (layers, styles, nested definitions ...) are cloned with them at any depth; `duplicates` states what happens to
  // a record whose name the target has. Errors as above, also eWrongDatabase for an owner of this drawing and
  // eDatabaseGone for one whose drawing is closed.
  OdResult wblockCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                              OdDb::DuplicateRecordCloning duplicates, bool deferTranslation = false);
  // Creates or redefines the block `blockName` of this drawing with a clone of the source's model space; the base point
  // of the source becomes the origin of the block. An existing record keeps its id; a new one gets scaling, description
  // and annotative properties that the source stores with its model space, and both get its dynamic block data. Records
  // that the clones depend on are cloned with them; those whose name this drawing has, nested definitions among them,
  // are not replaced. A nested definition that would make the block contain itself is cloned under a free name.
  // Relative paths of external references are converted from the folder of the source to that of this drawing. The
  // source is unchanged; `preserveSource` has no effect. Returns the null id, and changes nothing, for an empty name, a
  // null source, this drawing as the source, the name of a space or of an external reference, and when the limits of
  // cloning are exceeded.
  OdDbObjectId insert(const OdString& blockName, OdDbDatabase* source, bool preserveSource = true);
  // Report of the latest insert: "clone.renamed" for each definition that was cloned under another name.
  const drawing::Report& insertReport() const { return insertReport_; }

  // Removes from `ids` what cannot be purged: mandatory objects, and objects that are used by others which are not in
  // the list. Erases nothing; always eOk. See DbPurge.h for the reasons.
  OdResult purge(OdDbObjectIdArray& ids);

  // Undo. startUndoRecord sets a mark; undo reverts everything since the last mark that was followed by a change; redo
  // restores it. Both return eNotApplicable if there is nothing to revert or restore. Ids remain valid. Nothing is
  // recorded before the first mark or while recording is disabled. A change after an undo discards the steps to redo.
  void startUndoRecord();
  bool hasUndo() const;
  bool hasRedo() const;
  OdResult undo();
  OdResult redo();
  void rollback(); // reverts to the last mark without redo, for a command that failed
  void disableUndoRecording(bool disable);
  // Restores the state that the objects and their parts had at the last mark; other changes of the step remain. Ids
  // that did not change since then are ignored.
  void restoreFromUndo(const OdDbObjectIdArray& ids);
  std::uint64_t
  changeCount() const; // increases with every recorded change, undo and redo: whether a drawing is modified

  // Nested brackets around a longer change of the drawing; they count only. endTransaction throws
  // OdError(eNotApplicable) without a start.
  void startTransaction();
  void endTransaction();
  int transactionDepth() const { return transactions_; }

  // Thumbnail that file dialogs display: a device-independent bitmap that begins with its BITMAPINFOHEADER, without a
  // BITMAPFILEHEADER. It belongs to the file, not to the state of the drawing: undo does not change it. A thumbnail
  // that was read is saved again; one that was set, only if it is to be retained. The bytes are copied; null or size 0
  // removes the thumbnail. Returns eInvalidInput for more bytes than a file can state (2^31 - 1).
  OdResult setThumbnailBitmap(const void* bitmap, std::size_t size);
  std::string thumbnailBitmap() const; // empty if there is none or it cannot be read
  void setRetainOriginalThumbnailBitmap(bool retain) { retainsThumbnail_ = retain; }
  bool retainOriginalThumbnailBitmap() const { return retainsThumbnail_; }
  bool isThumbnailWritten() const { return retainsThumbnail_ || !hasOwnThumbnail_; }

  // File properties and preserved sections; changing them is not recorded for undo.
  drawing::FileInfo& fileInfo() { return fileInfo_; }
  const drawing::FileInfo& fileInfo() const { return fileInfo_; }
  std::vector<drawing::OpaqueSection>& opaqueSections() { return opaqueSections_; }
  const std::vector<drawing::OpaqueSection>& opaqueSections() const { return opaqueSections_; }

  // -- SDK internals. --

  // Object store, undo log, external references, tables as set by readers, header object.
  drawing::Store& store() { return *store_; }
  const drawing::Store& store() const { return *store_; }
  drawing::Undo& undoLog() { return *undo_; }
  drawing::XrefTable& xrefs() { return *xrefs_; }
  const drawing::XrefTable& xrefs() const { return *xrefs_; }
  void setSymbolTable(OdDb::SymbolTableKind kind, OdDbObjectId id) { tables_[kind] = id; }
  void setNamedObjectsDictionary(OdDbObjectId id) { namedObjects_ = id; }
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
  drawing::FileInfo fileInfo_;
  std::vector<drawing::OpaqueSection> opaqueSections_;
  drawing::Report insertReport_;
  int transactions_ = 0;
  bool hasOwnThumbnail_ = false; // set since the drawing was read
  bool retainsThumbnail_ = false;
};
