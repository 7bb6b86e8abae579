// Group codes and lists of groups: the form in which data that is not modelled is preserved.
//
// A group is a code and a value. The code decides the kind of the value (groupKindOf). References are stored as ids, so
// they are translated when objects are cloned to another drawing. Text is UTF-8; bytes that are not text in the code
// page of the file are preserved.
#pragma once

#include "DbObjectId.h"
#include "Ge/GePoint3d.h"
#include "OdString.h"
#include "drawing/report.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

// Kind of the value of a group.
enum class GroupKind : std::uint8_t {
  kText,
  kReal,
  kInt16,
  kInt32,
  kInt64,
  kBool,
  kHandle,    // a handle that is not a reference: never translated (codes 5, 105, 320 to 329)
  kReference, // codes 330 to 369, 390 to 399, 480, 481, 1005
  kBinary,    // hexadecimal in text files: 310 to 319, 1004
  kUnparsed   // a value that does not fit its code, preserved as text
};

// Kind of the values of a group code as DXF files define it; kText for codes that are not defined.
MVDRAWING_API GroupKind groupKindOf(int code);
// Kind of the references of a group code: 330 soft pointer, 340 hard pointer, 350 soft owner, 360 hard owner ...
MVDRAWING_API OdDb::ReferenceType referenceTypeOf(int code);

// Receives groups in file order: the writers of files, the canonical dump, the list below.
class MVDRAWING_API GroupSink {
public:
  virtual ~GroupSink();
  // A value of the kind under that code; the caller chooses the function that fits the code. Texts are valid during the
  // call only. U+DC80 to U+DCFF in text are bytes, see OdString.
  virtual void utf8(int code, std::string_view text) = 0;
  virtual void real(int code, double value) = 0;
  virtual void integer(int code, std::int64_t value) = 0;
  virtual void reference(int code, OdDbObjectId id) = 0;
  virtual void handle(int code, OdDbHandle value) = 0;
  virtual void binary(int code, std::string_view bytes) = 0;
  virtual void unparsed(int code, std::string_view text) = 0;

  virtual OdDb::DwgVersion version() const { return OdDb::kNewestVersion; } // version to write
  // Whether values that the version does not define may be written: true if they were read from a file of that version.
  virtual bool keepsNewer() const { return true; }
  // Receives what the version or the form cannot represent and is therefore omitted or changed.
  virtual void lost(Issue) {}
  // Receives a value that is omitted because the version does not have it; kNoNumber for values that are not numbers.
  // Reports it to lost().
  virtual void omitted(int code, std::string_view marker, double value);
  static constexpr double kNoNumber = -1e301;

  // Text as UTF-8, and a point as three groups: code, code + 10, code + 20.
  void text(int code, const OdString& value) { utf8(code, value.toUtf8Lossless()); }
  void point(int code, const OdGePoint3d& p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
  }
};

// Position of a text in the buffer of its list.
struct TextSpan {
  std::uint32_t first, length;
};

// A group of a list. Which member of the union is valid depends on the kind; texts and ids are read through the list.
struct Group {
  std::int16_t code = 0;
  GroupKind kind = GroupKind::kText;
  union {
    double real;
    std::int64_t integer; // also the handle
    TextSpan span;        // into the list's text
    std::uint64_t id;
  };
  Group() : integer(0) {} // code 0
};

// An ordered list of groups, 16 bytes each, with one buffer for all texts. Indices and kinds are not checked: callers
// use indices below size() and the function that fits the kind of the group.
class MVDRAWING_API GroupList final : public GroupSink {
public:
  GroupList() = default;
  GroupList(const GroupList&) = default;
  GroupList(GroupList&&) noexcept = default;
  GroupList& operator=(const GroupList&) = default;
  GroupList& operator=(GroupList&&) noexcept = default;
  ~GroupList() override;

  // Contents. References to groups are valid until the list changes.
  bool empty() const { return groups_.empty(); }
  std::size_t size() const { return groups_.size(); }
  const Group& operator[](std::size_t i) const { return groups_[i]; }
  void clear();

  // Value of a group of this list: kText, kBinary and kUnparsed as bytes (valid until the list changes) or as a string,
  // kReference as an id.
  std::string_view textOf(const Group& group) const;
  OdDbObjectId idOf(const Group& group) const;
  OdString stringOf(const Group& group) const;
  // Replace the value of a group.
  void setId(std::size_t i, OdDbObjectId id);
  void setReal(std::size_t i, double value) { groups_[i].real = value; }
  void setInteger(std::size_t i, std::int64_t value) { groups_[i].integer = value; }
  void setText(std::size_t i, std::string_view value);
  // Append `count` groups of another list from `first` on, which may not be this list; remove groups.
  void append(const GroupList& other, std::size_t first, std::size_t count);
  void erase(std::size_t first, std::size_t count);

  // Index of the first group of that code from `from` on; size() if there is none.
  std::size_t find(int code, std::size_t from = 0) const;

  // Append a group.
  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unparsed(int code, std::string_view text) override;

  // Passes `count` groups from `first` on, or all, to a sink.
  void writeTo(GroupSink& sink, std::size_t first, std::size_t count) const;
  void writeTo(GroupSink& sink) const { writeTo(sink, 0, size()); }

  // Bytes in use.
  std::size_t memory() const { return groups_.capacity() * sizeof(Group) + text_.capacity(); }

private:
  void addText(int code, GroupKind kind, std::string_view text);

  std::vector<Group> groups_;
  std::string text_;
};

} // namespace drawing
