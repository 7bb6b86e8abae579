// Group codes and lists of groups: the form in which everything that is not modelled is carried.
//
// A group is a code and a value. The code decides the value's kind (groupKindOf). References are held as ids, so they
// follow their objects when objects move to another drawing. Text is UTF-8; bytes that were no text in the file's
// code page are kept as they stood.
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

enum class GroupKind : std::uint8_t {
  Text,
  Real,
  Int16,
  Int32,
  Int64,
  Bool,
  Handle,    // a handle that is no reference: taken as it is, never translated (codes 5, 105, 320 to 329)
  Reference, // codes 330 to 369, 390 to 399, 480, 481, 1005
  Binary,    // hexadecimal in text files: 310 to 319, 1004
  Unread     // a value that does not fit its code, kept as the text it was
};

// The kind of values that a code carries; codes nobody defined carry text.
MVDRAWING_API GroupKind groupKindOf(int code);
// How a reference under that code holds its object (330: soft pointer ...).
MVDRAWING_API OdDb::ReferenceType referenceTypeOf(int code);

// Receives groups in file order: the writers of files, the canonical dump, the list below.
class MVDRAWING_API GroupSink {
public:
  virtual ~GroupSink();
  virtual void utf8(int code, std::string_view text) = 0; // bytes U+DC80.. stand for themselves, see OdString
  virtual void real(int code, double value) = 0;
  virtual void integer(int code, std::int64_t value) = 0;
  virtual void reference(int code, OdDbObjectId id) = 0;
  virtual void handle(int code, OdDbHandle value) = 0;
  virtual void binary(int code, std::string_view bytes) = 0;
  virtual void unread(int code, std::string_view text) = 0;
  virtual OdDb::DwgVersion version() const { return OdDb::kNewestVersion; }
  // Whether values that the version does not have may be written all the same: a drawing of that very version came
  // with them, so whoever wrote it meant them.
  virtual bool keepsNewer() const { return true; }
  // Told of what the version or the form cannot hold and is therefore left out or changed.
  virtual void lost(Issue) {}
  // Told of a value of a section that is not written because the version is too early for it. Values that are no
  // numbers come as kNoNumber.
  virtual void leftOut(int code, std::string_view marker, double value);
  static constexpr double kNoNumber = -1e301;

  void text(int code, const OdString& value) { utf8(code, value.toUtf8Lossless()); }
  void point(int code, const OdGePoint3d& p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
  }
};

// Where a text lies in its list's buffer.
struct TextSpan {
  std::uint32_t first, length;
};

struct Group {
  std::int16_t code = 0;
  GroupKind kind = GroupKind::Text;
  union {
    double real;
    std::int64_t integer; // also the handle
    TextSpan span;        // into the list's text
    std::uint64_t id;
  };
  Group() : integer(0) {}
};

// An ordered list of groups, 16 bytes each and one buffer for all texts.
class MVDRAWING_API GroupList final : public GroupSink {
public:
  GroupList() = default;
  GroupList(const GroupList&) = default;
  GroupList(GroupList&&) noexcept = default;
  GroupList& operator=(const GroupList&) = default;
  GroupList& operator=(GroupList&&) noexcept = default;
  ~GroupList() override;

  bool empty() const { return groups_.empty(); }
  std::size_t size() const { return groups_.size(); }
  const Group& operator[](std::size_t i) const { return groups_[i]; }
  void clear();

  std::string_view textOf(const Group& group) const; // Text, Binary, Unread
  OdDbObjectId idOf(const Group& group) const;       // Reference
  OdString stringOf(const Group& group) const;
  void setId(std::size_t i, OdDbObjectId id);
  void setReal(std::size_t i, double value) { groups_[i].real = value; }
  void setInteger(std::size_t i, std::int64_t value) { groups_[i].integer = value; }
  void setText(std::size_t i, std::string_view value);
  void append(const GroupList& other, std::size_t first, std::size_t count);
  void erase(std::size_t first, std::size_t count);

  // First group of that code at or behind `from`; size() when there is none.
  std::size_t find(int code, std::size_t from = 0) const;

  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unread(int code, std::string_view text) override;

  // Sends groups first .. first+count-1 on.
  void writeTo(GroupSink& sink, std::size_t first, std::size_t count) const;
  void writeTo(GroupSink& sink) const { writeTo(sink, 0, size()); }

  std::size_t memory() const { return groups_.capacity() * sizeof(Group) + text_.capacity(); }

private:
  void addText(int code, GroupKind kind, std::string_view text);

  std::vector<Group> groups_;
  std::string text_;
};

} // namespace drawing
