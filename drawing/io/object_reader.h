// Turns a record into an object.
#pragma once

#include "drawing/model/record.h"

#include "DbEntity.h"

namespace drawing {

// What a record says besides the object itself.
struct ReadObject {
  OdSmartPtr<OdDbObject> object;
  std::uint64_t handle = 0;  // 0: none
  OdDbObjectId owner;        // null: none named
  bool inPaperSpace = false; // group 67
};

class ObjectReader {
public:
  explicit ObjectReader(LoadContext& context) : context_(context) {}

  // The object of a record: typed, of an unmodelled kind, or kept unread when a value cannot be understood.
  ReadObject read(const Record& record, bool isEntity);
  // Fills an object that is there already (records of tables, headers of blocks). `second` is asked in every section
  // of its marker before the object's own: a block's head belongs to its table record.
  void fill(const Record& record, OdDbObject& object, ReadObject& info, OdDbObject* second = nullptr,
            const SubclassLayout* secondSubclass = nullptr);

private:
  struct Filling;
  class RunCursor;
  class RunReader;

  void fillSubclasses(const Filling& filling);
  void fillWithoutMarkers(const Filling& filling);
  std::size_t readPreamble(const Record& record, OdDbObject& object, ReadObject& info);
  void skip(const RawGroup& group);
  std::size_t readApplicationGroup(const Record& record, std::size_t at, OdDbObject& object);
  void readXData(const Record& record, std::size_t from, OdDbObject& object);
  ReadObject readUnparsed(const Record& record, bool isEntity);

  LoadContext& context_;
};

} // namespace drawing
