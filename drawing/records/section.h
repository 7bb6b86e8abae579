// Sections of an object: its groups under a subclass marker, read and written by the description of its class.
#pragma once

#include "drawing/detail/description.h"
#include "drawing/model/record.h"

namespace drawing {

class LoadContext;

// Takes one group by a description: into its field, by the section's own reader, or not at all.
class MVDRAWING_API SubclassReader {
public:
  SubclassReader(OdDbObject& object, const SubclassLayout& subclass, LoadContext& context)
      : object_(object), section_(subclass), context_(context) {}
  bool take(const RawGroup& group);

private:
  void store(const Field& field, const RawGroup& group);
  template <class T>
  void storeValue(T& value, const Field& field, const RawGroup& group);
  OdDbObjectId reference(const Field& field, const RawGroup& group);

  OdDbObject& object_;
  const SubclassLayout& section_;
  LoadContext& context_;
  // A field takes its code once. Files use some codes again in the same section for something else; those groups belong
  // to no field and are preserved.
  bool markTaken(std::size_t field, int component);

  std::size_t next_ = 0;               // groups come in the order of the fields most of the time
  std::uint64_t taken_[3] = {0, 0, 0}; // a bit a field, for each component
  bool embedded_ = false; // behind code 101 the groups belong to an embedded object: no field of ours is among them
};

// Writes the fields of a section in order, then what its own writer adds. Fields of later versions than the sink's are
// omitted.
void writeSubclass(const OdDbObject& object, const SubclassLayout& subclass, GroupSink& sink);
// Writes everything behind the owner: markers, fields, carried groups. Extended data is not included.
MVDRAWING_API void writeSubclasses(const OdDbObject& object, GroupSink& sink);

} // namespace drawing
