// Base class of database objects, and chains of tagged values.
//
// Rules for all database objects, which other headers do not repeat: setters throw OdError(eNotOpenForWrite) for a
// resident object that is not open for write; reading never throws unless stated; objects belong to one thread at a
// time together with their drawing (DbDatabase.h); pointers that functions return by value are counted, raw pointers
// and references to parts of an object are valid while the object is alive and unchanged.
#pragma once

#include "DbObjectId.h"
#include "RxObject.h"
#include "drawing/detail/description.h"
#include "drawing/detail/groups.h"

#include <memory>
#include <vector>

class OdDbDatabase;
class OdDbIdMapping;
class OdDbDictionary;
class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;
class OdGeMatrix3d;

namespace drawing {
class IdList;
class Store;
class Undo;
class WriteScope;
} // namespace drawing

// Declares what every class of database objects that can be created has, in the class body.
#define MVDRAWING_DECLARE_OBJECT(Class)                                                                                \
  MVDRAWING_DECLARE_CLASS(Class);                                                                                      \
  OdDbObject* makeCopy() const override;                                                                               \
  void assignState(const OdDbObject& other) override;                                                                  \
  static const drawing::Description& ownDescription();                                                                 \
  const drawing::Description& description() const override

// Defines those members in a source file. `dxfName`: its entity or record name in DXF files.
#define MVDRAWING_DEFINE_OBJECT(Class, Base, dxfName)                                                                  \
  MVDRAWING_DEFINE_CLASS(Class, Base, dxfName);                                                                        \
  OdDbObject* Class::makeCopy() const {                                                                                \
    return new Class(*this);                                                                                           \
  }                                                                                                                    \
  void Class::assignState(const OdDbObject& other) {                                                                   \
    *this = static_cast<const Class&>(other);                                                                          \
  }                                                                                                                    \
  const drawing::Description& Class::description() const {                                                             \
    return ownDescription();                                                                                           \
  }

// An object is either resident (it has an id and its drawing owns it) or free (created and not yet added; its smart
// pointers own it). A resident object may change only while it is open for write; every setter throws
// OdError(eNotOpenForWrite) otherwise. Free objects may always be changed.
class MVDRAWING_API OdDbObject : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbObject);
  ~OdDbObject() override;

  // Identity. The ids are null, the handle 0 and the database null for a free object; the owner is null for objects
  // without one. setOwnerId changes the reference to the owner only: containers have functions of their own to add.
  OdDbObjectId objectId() const { return id_; }
  OdDbObjectId id() const { return id_; }
  OdDbObjectId ownerId() const { return owner_; }
  void setOwnerId(OdDbObjectId owner);
  OdDbDatabase* database() const;
  OdDbHandle getDbHandle() const { return id_.getHandle(); }
  bool isResident() const { return !id_.isNull(); }

  bool isErased() const { return erased_; } // an erased object keeps its id and can be unerased
  // Erases the object and what it owns, or unerases them. Returns eWasErased if it is in that state already, and
  // eDuplicateRecordName for unerasing a record whose name another record has by now; nothing is changed then. Owned
  // objects need not be open for write.
  OdResult erase(bool erasing = true);

  // Open for write or not (see OdDbObjectId::openObject). It is a state of the object, shared by all its pointers: it
  // ends with downgradeOpen or when the last pointer is released. upgradeOpen throws OdError(eOnLockedLayer) for an
  // entity on a locked layer. assertWriteEnabled throws OdError(eNotOpenForWrite), else records the state for undo;
  // every change has to be preceded by it. A free object is always enabled.
  bool isReadEnabled() const { return true; }
  bool isWriteEnabled() const { return !isResident() || writable_; }
  void upgradeOpen();
  void downgradeOpen();
  void assertWriteEnabled();

  // Extension dictionary: null id if there is none. createExtensionDictionary returns the present one if there is one,
  // and throws OdError(eNotInDatabase) for a free object.
  OdDbObjectId extensionDictionary() const;
  OdDbObjectId createExtensionDictionary();

  // Persistent reactors: objects that depend on this one, in order of addition, without duplicates. Ids are not
  // checked; removing an id that is not in the list has no effect.
  OdDbObjectIdArray getPersistentReactors() const;
  bool hasPersistentReactor(OdDbObjectId id) const;
  void addPersistentReactor(OdDbObjectId id);
  void removePersistentReactor(OdDbObjectId id);

  // Extended data: groups 1000 to 1071 as a chain; the first group (1001) names the application. An empty name returns
  // the data of all applications, null if there is none. Setting replaces the data of the applications named in the
  // chain; a name alone removes its data. Groups before the first 1001 are ignored. The chain is copied.
  OdResBufPtr xData(const OdString& application = OdString()) const;
  void setXData(const OdResBuf* chain);

  // Its entity or record name in DXF files (LINE, LAYER ...).
  virtual std::string dxfName() const;

  // -- SDK internals; command code does not need these. --

  // A new free object with the same state and no identity, owned by the caller, and the assignment of such a state from
  // an object of the same class. makeCopy throws OdError(eNotApplicable) for abstract classes.
  virtual OdDbObject* makeCopy() const;
  virtual void assignState(const OdDbObject& other);
  // Description of the members of the object's class, and of this class.
  virtual const drawing::Description& description() const;
  static const drawing::Description& ownDescription();
  // Visits every reference that the object contains, except its owner, in the same order; the visitor of the first may
  // change them.
  virtual void visitReferences(drawing::ReferenceVisitor& visitor);
  virtual void visitReferences(drawing::ConstReferenceVisitor& visitor) const;
  // Appends the objects that are erased and cloned with this one (attributes, vertices, ends of sequences ...), in file
  // order.
  virtual void ownedObjects(std::vector<OdDbObjectId>& ids) const;
  // True for entities on a locked layer, which do not open for write.
  virtual bool isOnLockedLayer() const { return false; }
  // Member list of a container that grows at its end; null for other objects.
  virtual drawing::IdList* memberList() { return nullptr; }
  // Called on a container when undo or redo changed its member list or the name of a member.
  virtual void membersChanged() {}
  // Appends the objects that transforming this one changes as well.
  virtual void movedAlong(std::vector<OdDbObjectId>& ids) const { ownedObjects(ids); }
  // Called on a clone once its references have been translated.
  virtual void afterClone(const OdDbObject& source, OdDbIdMapping& mapping);
  void dropLostReactors(); // removes null ids from the persistent reactors
  // Called once the reader has read the whole drawing: derives what depends on other objects.
  virtual void afterLoad();

  // Groups that no field describes, after the subclass markers that they followed in the file, and extended data as
  // groups. The const functions return null if there are none; the others require the object to be open for write.
  drawing::GroupList& unmodelledGroups();
  const drawing::GroupList* unmodelledGroupsOrNull() const;
  const drawing::GroupList* xDataGroups() const;
  drawing::GroupList& xDataGroupsForWrite();

protected:
  OdDbObject();                                   // a free object
  OdDbObject(const OdDbObject& other);            // copies the state, not the identity
  OdDbObject& operator=(const OdDbObject& other); // copies the state, not the identity
  void onLastRelease() const override;
  // Called after the object was erased or unerased, and before it is unerased: eOk, or the reason to refuse.
  virtual void afterErase(bool erasing);
  virtual OdResult canUnerase() const { return eOk; }

private:
  friend class OdDbDatabase;
  friend class OdDbObjectId;
  friend class drawing::Store;
  friend class drawing::Undo;
  friend class drawing::WriteScope;

  struct Extras { // data that few objects have
    OdDbObjectId extensionDictionary;
    std::vector<OdDbObjectId> reactors;
    drawing::GroupList unmodelledGroups;
    drawing::GroupList xData;
    drawing::GroupList applicationGroups; // "{NAME" ... "}" groups of other applications
  };
  Extras& extras();

public:
  // Data that few objects have, for readers and writers; changing it is not recorded for undo.
  const Extras* extrasOrNull() const { return extras_.get(); }
  Extras& extrasForLoad() { return extras(); }

private:
  OdDbObjectId id_;
  OdDbObjectId owner_;
  std::unique_ptr<Extras> extras_;
  std::uint32_t undoMark_ = 0; // the undo group that already contains this object's earlier state
  bool erased_ = false;
  mutable bool writable_ = false;
};

// A value with a group code, and the rest of a chain of them: extended data, xrecords. Only the value that the group
// code calls for has a meaning (groupKindOf); the code is not checked. Owned by its counted pointers.
class MVDRAWING_API OdResBuf : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdResBuf);
  // A new chain of one value with that group code.
  static OdResBufPtr make(int groupCode);
  static OdResBufPtr make(int groupCode, const OdString& text);
  static OdResBufPtr make(int groupCode, double real);
  static OdResBufPtr make(int groupCode, const OdGePoint3d& point);
  static OdResBufPtr make(int groupCode, OdDbObjectId id);
  static OdResBufPtr makeInteger(int groupCode, std::int64_t value);

  // Group code and value. A real number is the x coordinate of the point. Values that were not set are 0, null or
  // empty.
  int groupCode() const { return code_; }
  OdString getString() const { return text_; }
  double getDouble() const { return point_.x; }
  OdGePoint3d getPoint3d() const { return point_; }
  std::int64_t getInt() const { return integer_; }
  OdDbObjectId getObjectId() const { return id_; }
  const std::string& getBinary() const { return bytes_; }

  // Replace the value, of which they check neither range nor kind.
  void setString(const OdString& text) { text_ = text; }
  void setDouble(double value) { point_.x = value; }
  void setPoint3d(const OdGePoint3d& point) { point_ = point; }
  void setInt(std::int64_t value) { integer_ = value; }
  void setObjectId(OdDbObjectId id) { id_ = id; }
  void setBinary(const std::string& bytes) { bytes_ = bytes; }

  // The rest of the chain, null at its end. setNext replaces it and returns the new rest; last returns the last value
  // of the chain, which must not be a cycle.
  OdResBufPtr next() const { return next_; }
  OdResBufPtr setNext(OdResBufPtr next);
  OdResBufPtr last() const;
  ~OdResBuf() override;

  // Conversion of `count` groups from `first` on into a chain, null for none, and of a chain, which may be null, into
  // groups that are appended. A point is one value for three groups.
  static OdResBufPtr fromGroups(const drawing::GroupList& groups, std::size_t first, std::size_t count);
  static void toGroups(const OdResBuf* chain, drawing::GroupList& groups);

private:
  int code_ = 0;
  OdString text_;
  OdGePoint3d point_;
  std::int64_t integer_ = 0;
  OdDbObjectId id_;
  std::string bytes_;
  OdResBufPtr next_;
};
