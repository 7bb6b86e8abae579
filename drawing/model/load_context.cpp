#include "drawing/model/load_context.h"

#include "DbBlockTable.h"
#include "drawing/base/trimmed.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

constexpr char kBlanks[] = " \t";

template <class T>
bool wholeNumber(std::string_view text, T& value) {
  if (!text.empty() && text.front() == '+')
    text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

// What a text file would hold.
std::string asText(const RawGroup& group) {
  if (group.form == RawGroup::Form::kText || group.form == RawGroup::Form::kBytes)
    return std::string(group.text);
  char digits[40];
  const auto result = group.form == RawGroup::Form::kReal
                          ? std::to_chars(digits, digits + sizeof digits, group.real)
                          : std::to_chars(digits, digits + sizeof digits, group.integer);
  return std::string(digits, result.ptr);
}

} // namespace

void LoadContext::begin(std::string_view kind, std::uint64_t line) {
  kind_ = kind;
  line_ = line;
  handle_ = 0;
  failed_ = false;
}

void LoadContext::setLineOf(OdDbObjectId id, std::uint64_t line) {
  if (id.number() >= lines_.size())
    lines_.resize(id.number() + 1);
  lines_[id.number()] = static_cast<std::uint32_t>(std::min<std::uint64_t>(line, UINT32_MAX));
}

void LoadContext::addIssue(Issue issue, const RawGroup* group) {
  issue.line = group != nullptr ? group->line : line_;
  issue.isOffset = database_.fileInfo().binary;
  issue.groupCode = group != nullptr ? group->code : -1;
  issue.handle = handle_;
  issue.section = section_;
  issue.kind = kind_;
  report_.add(std::move(issue));
}

void LoadContext::fail(const RawGroup& group, const char* reason) {
  if (failed_)
    return; // one issue per record is enough
  failed_ = true;
  std::string found = std::string(reason);
  if (group.form != RawGroup::Form::kBytes)
    found += " (\"" + asText(group).substr(0, 40) + "\")";
  addIssue({.code = "dxf.value-unreadable",
            .severity = Severity::kRepaired,
            .found = found,
            .done = "the record is preserved unchanged"},
           &group);
}

bool LoadContext::real(const RawGroup& group, double& value) {
  double number = 0;
  if (group.form == RawGroup::Form::kReal)
    number = group.real;
  else if (group.form == RawGroup::Form::kInteger)
    number = static_cast<double>(group.integer);
  else if (!wholeNumber(trimmed(group.text, kBlanks), number)) {
    fail(group, "the value is not a number");
    return false;
  }
  if (!std::isfinite(number)) {
    fail(group, "the number is not finite");
    return false;
  }
  value = number;
  return true;
}

bool LoadContext::integer(const RawGroup& group, std::int64_t& value) {
  if (group.form == RawGroup::Form::kInteger) {
    value = group.integer;
    return true;
  }
  if (group.form == RawGroup::Form::kText && wholeNumber(trimmed(group.text, kBlanks), value))
    return true;
  double number = 0; // some programs write whole numbers with a decimal point
  const bool written = group.form == RawGroup::Form::kReal ? (number = group.real, true)
                                                           : wholeNumber(trimmed(group.text, kBlanks), number);
  if (!written || number != std::floor(number) || std::fabs(number) > 9e15) {
    fail(group, "the value is not a whole number");
    return false;
  }
  value = static_cast<std::int64_t>(number);
  return true;
}

bool LoadContext::integer(const RawGroup& group, std::int64_t& value, int bits) {
  std::int64_t whole = 0;
  if (!integer(group, whole))
    return false;
  // Some programs write the bits of a negative number as a positive one.
  if (whole < -(std::int64_t{1} << (bits - 1)) || whole >= std::int64_t{1} << bits) {
    fail(group, "the number is out of range");
    return false;
  }
  value = whole;
  return true;
}

std::string_view LoadContext::utf8(const RawGroup& group) {
  return decoder_.decode(group.text, buffer_);
}

namespace {

bool readHandle(std::string_view text, std::uint64_t& value) {
  text = trimmed(text, kBlanks);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

} // namespace

bool LoadContext::isHandle(const RawGroup& group) {
  std::uint64_t value = 0;
  return readHandle(group.text, value);
}

bool LoadContext::handle(const RawGroup& group, std::uint64_t& value) {
  if (!readHandle(group.text, value)) {
    fail(group, "the value is not a handle");
    return false;
  }
  return true;
}

namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  const char upper = static_cast<char>(c & ~0x20);
  return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

} // namespace

bool LoadContext::bytes(const RawGroup& group, std::string& value) {
  if (group.form == RawGroup::Form::kBytes) {
    value.append(group.text);
    return true;
  }
  const std::string_view text = trimmed(group.text, kBlanks);
  bool good = text.size() % 2 == 0;
  for (const char c : text)
    good = good && hexDigit(c) >= 0;
  if (!good) {
    fail(group, "the value is not hexadecimal");
    return false;
  }
  for (std::size_t i = 0; i < text.size(); i += 2)
    value.push_back(static_cast<char>(hexDigit(text[i]) * 16 + hexDigit(text[i + 1])));
  return true;
}

OdDbObjectId LoadContext::reference(const RawGroup& group) {
  std::uint64_t value = 0;
  return handle(group, value) ? database_.store().expect(value) : OdDbObjectId();
}

OdDbObjectId LoadContext::symbol(OdDb::SymbolTableKind kind, const RawGroup& group) {
  NameCache& cache = names_[kind];
  if (!cache.id.isNull() && cache.bytes == group.text)
    return cache.id;
  const OdString name = text(group);
  if (name.isEmpty())
    return {};
  OdDbObjectId id = database_.symbol(kind, name);
  if (id.isNull())
    id = makeMissing(kind, name, group);
  cache.bytes = group.text;
  cache.id = id;
  return id;
}

OdDbSymbolTable& LoadContext::table(OdDb::SymbolTableKind kind, OdDbHandle handle) {
  if (auto* present = getIf<OdDbSymbolTable>(database_.getSymbolTableId(kind)))
    return *present;
  OdDbSymbolTable* made = newTable(kind);
  database_.setSymbolTable(kind, database_.store().add(made, handle));
  return *made;
}

OdDbObjectId LoadContext::makeMissing(OdDb::SymbolTableKind kind, const OdString& name, const RawGroup& group) {
  OdRxObjectPtr made = recordClass(kind)->create();
  if (made.isNull())
    return {};
  OdDbSymbolTable& ownerTable = table(kind);
  OdSmartPtr<OdDbSymbolTableRecord> record = made;
  record->setName(name);
  OdDbObjectId id = database_.addObject(record.get(), ownerTable.objectId());
  ownerTable.registerRecord(record.get());
  missing_.emplace(id, group.line);
  return id;
}

void LoadContext::append(GroupList& list, const RawGroup& group) {
  const GroupKind kind = groupKindOf(group.code);
  const bool before = failed_;
  const std::size_t size = list.size();
  double number = 0;
  std::int64_t whole = 0;
  std::uint64_t name = 0;
  switch (kind) {
  case GroupKind::kText:
    list.utf8(group.code, utf8(group));
    break;
  case GroupKind::kReal:
    if (real(group, number))
      list.real(group.code, number);
    break;
  case GroupKind::kHandle:
    if (handle(group, name))
      list.handle(group.code, name);
    break;
  case GroupKind::kReference:
    if (handle(group, name))
      list.reference(group.code, database_.store().expect(name));
    break;
  case GroupKind::kBinary:
    if (std::string data; bytes(group, data))
      list.binary(group.code, data);
    break;
  default:
    if (integer(group, whole))
      list.integer(group.code, whole);
  }
  if (list.size() == size) {
    // Carried data may hold what it likes: it is not used in computations, so it does not damage the record.
    list.unparsed(group.code, asText(group));
    failed_ = before;
  }
}

} // namespace drawing
