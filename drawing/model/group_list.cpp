#include "drawing/detail/groups.h"

#include <algorithm>

namespace drawing {

namespace {

struct KindRange {
  int first, last;
  GroupKind kind;
};

// The value kinds of group codes, ascending. Codes between the ranges carry text.
constexpr KindRange kKinds[] = {
    {5, 5, GroupKind::kHandle},        {10, 59, GroupKind::kReal},          {60, 79, GroupKind::kInt16},
    {90, 99, GroupKind::kInt32},       {105, 105, GroupKind::kHandle},      {110, 149, GroupKind::kReal},
    {160, 169, GroupKind::kInt64},     {170, 179, GroupKind::kInt16},       {210, 239, GroupKind::kReal},
    {270, 289, GroupKind::kInt16},     {290, 299, GroupKind::kBool},        {310, 319, GroupKind::kBinary},
    {320, 329, GroupKind::kHandle},    {330, 369, GroupKind::kReference},   {370, 389, GroupKind::kInt16},
    {390, 399, GroupKind::kReference}, {400, 409, GroupKind::kInt16},       {420, 429, GroupKind::kInt32},
    {440, 459, GroupKind::kInt32},     {460, 469, GroupKind::kReal},        {480, 481, GroupKind::kReference},
    {1004, 1004, GroupKind::kBinary},  {1005, 1005, GroupKind::kReference}, {1010, 1059, GroupKind::kReal},
    {1060, 1070, GroupKind::kInt16},   {1071, 1071, GroupKind::kInt32},
};

} // namespace

GroupKind groupKindOf(int code) {
  const auto* range = std::upper_bound(std::begin(kKinds), std::end(kKinds), code,
                                       [](int c, const KindRange& r) { return c < r.first; });
  if (range == std::begin(kKinds) || code > std::prev(range)->last)
    return GroupKind::kText;
  return std::prev(range)->kind;
}

OdDb::ReferenceType referenceTypeOf(int code) {
  if (code >= 360 && code <= 369)
    return OdDb::kHardOwnershipRef;
  if (code >= 350 && code <= 359)
    return OdDb::kSoftOwnershipRef;
  if ((code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 || code == 481)
    return OdDb::kHardPointerRef;
  return OdDb::kSoftPointerRef;
}

GroupSink::~GroupSink() = default;

void GroupSink::omitted(int code, std::string_view marker, double) {
  lost({.code = "dxf.group-not-in-version",
        .severity = Severity::kLost,
        .groupCode = code,
        .found = "the version cannot store group " + std::to_string(code) + " of " + std::string(marker),
        .done = "it is omitted"});
}

GroupList::~GroupList() = default;

void GroupList::clear() {
  groups_.clear();
  text_.clear();
}

std::string_view GroupList::textOf(const Group& group) const {
  return std::string_view(text_).substr(group.span.first, group.span.length);
}

OdDbObjectId GroupList::idOf(const Group& group) const {
  return {static_cast<std::uint32_t>(group.id >> 32), static_cast<std::uint32_t>(group.id)};
}

OdString GroupList::stringOf(const Group& group) const {
  return OdString::fromUtf8(textOf(group));
}

void GroupList::setId(std::size_t i, OdDbObjectId id) {
  groups_[i].id = (static_cast<std::uint64_t>(id.serial()) << 32) | id.number();
}

void GroupList::setText(std::size_t i, std::string_view value) {
  groups_[i].span = {static_cast<std::uint32_t>(text_.size()), static_cast<std::uint32_t>(value.size())};
  text_.append(value);
}

void GroupList::append(const GroupList& other, std::size_t first, std::size_t count) {
  other.writeTo(*this, first, count);
}

void GroupList::erase(std::size_t first, std::size_t count) {
  const auto from = groups_.begin() + static_cast<std::ptrdiff_t>(first);
  groups_.erase(from, from + static_cast<std::ptrdiff_t>(count));
}

std::size_t GroupList::find(int code, std::size_t from) const {
  while (from < groups_.size() && groups_[from].code != code)
    ++from;
  return from;
}

void GroupList::addText(int code, GroupKind kind, std::string_view text) {
  Group group;
  group.code = static_cast<std::int16_t>(code);
  group.kind = kind;
  groups_.push_back(group);
  setText(groups_.size() - 1, text);
}

void GroupList::utf8(int code, std::string_view text) {
  addText(code, GroupKind::kText, text);
}
void GroupList::binary(int code, std::string_view bytes) {
  addText(code, GroupKind::kBinary, bytes);
}
void GroupList::unparsed(int code, std::string_view text) {
  addText(code, GroupKind::kUnparsed, text);
}

void GroupList::real(int code, double value) {
  Group group;
  group.code = static_cast<std::int16_t>(code);
  group.kind = GroupKind::kReal;
  group.real = value;
  groups_.push_back(group);
}

void GroupList::integer(int code, std::int64_t value) {
  Group group;
  group.code = static_cast<std::int16_t>(code);
  group.kind = groupKindOf(code);
  group.integer = value;
  groups_.push_back(group);
}

void GroupList::reference(int code, OdDbObjectId id) {
  Group group;
  group.code = static_cast<std::int16_t>(code);
  group.kind = GroupKind::kReference;
  groups_.push_back(group);
  setId(groups_.size() - 1, id);
}

void GroupList::handle(int code, OdDbHandle value) {
  Group group;
  group.code = static_cast<std::int16_t>(code);
  group.kind = GroupKind::kHandle;
  group.integer = static_cast<std::int64_t>(std::uint64_t{value});
  groups_.push_back(group);
}

void GroupList::writeTo(GroupSink& sink, std::size_t first, std::size_t count) const {
  for (std::size_t i = first; i < first + count; ++i) {
    const Group& group = groups_[i];
    switch (group.kind) {
    case GroupKind::kText:
      sink.utf8(group.code, textOf(group));
      break;
    case GroupKind::kReal:
      sink.real(group.code, group.real);
      break;
    case GroupKind::kReference:
      sink.reference(group.code, idOf(group));
      break;
    case GroupKind::kHandle:
      sink.handle(group.code, OdDbHandle(static_cast<std::uint64_t>(group.integer)));
      break;
    case GroupKind::kBinary:
      sink.binary(group.code, textOf(group));
      break;
    case GroupKind::kUnparsed:
      sink.unparsed(group.code, textOf(group));
      break;
    default:
      sink.integer(group.code, group.integer);
    }
  }
}

} // namespace drawing
