// The root of everything that lives in a drawing.
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

// Declared by every class of database objects that can be made.
#define ODDB_DECLARE_MEMBERS(Class)                                                                                    \
  ODRX_DECLARE_MEMBERS(Class);                                                                                         \
  OdDbObject* makeCopy() const override;                                                                               \
  void assignState(const OdDbObject& other) override;                                                                  \
  static const drawing::Description& ownDescription();                                                                 \
  const drawing::Description& description() const override

#define ODDB_DEFINE_MEMBERS(Class, Base, dxfName)                                                                      \
  ODRX_DEFINE_MEMBERS(Class, Base, dxfName);                                                                           \
  OdDbObject* Class::makeCopy() const {                                                                                \
    return new Class(*this);                                                                                           \
  }                                                                                                                    \
  void Class::assignState(const OdDbObject& other) {                                                                   \
    *this = static_cast<const Class&>(other);                                                                          \
  }                                                                                                                    \
  const drawing::Description& Class::description() const {                                                             \
    return ownDescription();                                                                                           \
  }

// An object is either resident (it has an id and its drawing owns it) or free (made and not yet added; its smart
// pointers own it). Members of a resident object may change only while it is open for write; every setter throws
// OdError(eNotOpenForWrite) otherwise. Free objects may always be changed.
class MVDRAWING_API OdDbObject : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbObject);
  ~OdDbObject() override;

  OdDbObjectId objectId() const { return id_; } // null for a free object
  OdDbObjectId id() const { return id_; }
  OdDbObjectId ownerId() const { return owner_; }
  void setOwnerId(OdDbObjectId owner);
  OdDbDatabase* database() const; // null for a free object
  OdDbHandle getDbHandle() const { return id_.getHandle(); }
  bool isDBRO() const { return !id_.isNull(); }

  bool isErased() const { return erased_; }
  // Erases the object and what it owns, or brings them back. Answers eWasErased when it is in that state already, and
  // eDuplicateRecordName for a record whose name another one has by now.
  OdResult erase(bool erasing = true);

  bool isReadEnabled() const { return true; }
  bool isWriteEnabled() const { return !isDBRO() || writable_; }
  void upgradeOpen();   // throws OdError(eOnLockedLayer) for an entity on a locked layer
  void downgradeOpen(); // writes are refused until the next upgrade or opening for write
  void assertWriteEnabled();

  // Extension dictionary: null id when there is none. createExtensionDictionary answers the present one if there is.
  OdDbObjectId extensionDictionary() const;
  OdDbObjectId createExtensionDictionary();

  OdDbObjectIdArray getPersistentReactors() const;
  bool hasPersistentReactor(OdDbObjectId id) const;
  void addPersistentReactor(OdDbObjectId id); // once only
  void removePersistentReactor(OdDbObjectId id);

  // Extended data: groups 1000 to 1071 as a chain; the first group (1001) names the application. A null or empty name
  // answers all of it. Setting replaces the data of the applications named in the chain; a name alone removes.
  OdResBufPtr xData(const OdString& application = OdString()) const;
  void setXData(const OdResBuf* chain);

  // Its record or entity name in files.
  virtual std::string dxfName() const;

  // -- For the SDK's own machinery; command code has no need of these. --
  virtual OdDbObject* makeCopy() const; // state without identity
  virtual void assignState(const OdDbObject& other);
  virtual const drawing::Description& description() const;
  static const drawing::Description& ownDescription();
  // Every reference that the object holds, its owner excepted.
  virtual void visitReferences(drawing::ReferenceVisitor& visitor);
  // Objects that live and are erased with this one (attributes, vertices, ends of sequences), in file order.
  virtual void ownedObjects(std::vector<OdDbObjectId>& ids) const;
  // Entities whose layer is locked do not open for write.
  virtual bool isOnLockedLayer() const { return false; }
  // The list of members of a container that grows at its end; null for anything else.
  virtual drawing::IdList* memberList() { return nullptr; }
  // Called when undo or redo changed the member list or a member's name behind the container's back.
  virtual void membersChanged() {}
  // Entities that transforming this one moves too.
  virtual void movedParts(std::vector<OdDbObjectId>& ids) const { ownedObjects(ids); }
  // Called on the copy when its references have been translated.
  virtual void afterClone(const OdDbObject& source, OdDbIdMapping& mapping);
  void dropLostReactors(); // reactors that became null
  // Called when the reader has all of the drawing; false: the object cannot stand as it is.
  virtual void afterLoad();

  drawing::GroupList& carried(); // groups that no field describes, with the markers they stood behind
  const drawing::GroupList* carriedOrNull() const;
  const drawing::GroupList* xDataGroups() const;
  drawing::GroupList& xDataGroupsForWrite();

protected:
  OdDbObject();
  OdDbObject(const OdDbObject& other);            // state without identity
  OdDbObject& operator=(const OdDbObject& other); // state without identity
  void onLastRelease() const override;
  virtual void afterErase(bool erasing);
  virtual OdResult mayComeBack() const { return eOk; }

private:
  friend class OdDbDatabase;
  friend class OdDbObjectId;
  friend class drawing::Store;
  friend class drawing::Undo;
  friend class drawing::WriteScope;

  struct Extras { // what few objects have
    OdDbObjectId extensionDictionary;
    std::vector<OdDbObjectId> reactors;
    drawing::GroupList carried;
    drawing::GroupList xData;
    drawing::GroupList applicationGroups; // "{NAME" ... "}" groups of other applications
  };
  Extras& extras();

public:
  const Extras* extrasOrNull() const { return extras_.get(); }
  Extras& extrasForLoad() { return extras(); }

private:
  OdDbObjectId id_;
  OdDbObjectId owner_;
  std::unique_ptr<Extras> extras_;
  std::uint32_t undoMark_ = 0; // the undo group that already holds this object's earlier state
  bool erased_ = false;
  mutable bool writable_ = false;
};

// A chain of tagged values: extended data, xrecords.
class MVDRAWING_API OdResBuf : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdResBuf);
  static OdResBufPtr newRb(int restype);
  static OdResBufPtr newRb(int restype, const OdString& text);
  static OdResBufPtr newRb(int restype, double real);
  static OdResBufPtr newRb(int restype, const OdGePoint3d& point);
  static OdResBufPtr newRb(int restype, OdDbObjectId id);
  static OdResBufPtr newInt(int restype, std::int64_t value);

  int restype() const { return code_; }
  OdString getString() const { return text_; }
  double getDouble() const { return point_.x; }
  OdGePoint3d getPoint3d() const { return point_; }
  std::int64_t getInt() const { return integer_; }
  OdDbObjectId getObjectId() const { return id_; }
  const std::string& getBinary() const { return bytes_; }

  void setString(const OdString& text) { text_ = text; }
  void setDouble(double value) { point_.x = value; }
  void setPoint3d(const OdGePoint3d& point) { point_ = point; }
  void setInt(std::int64_t value) { integer_ = value; }
  void setObjectId(OdDbObjectId id) { id_ = id; }
  void setBinary(const std::string& bytes) { bytes_ = bytes; }

  OdResBufPtr next() const { return next_; }
  OdResBufPtr setNext(OdResBufPtr next);
  OdResBufPtr last() const;
  ~OdResBuf() override;

  // Whole lists. Points are one buffer for three groups.
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
