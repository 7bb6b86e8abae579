#include "drawing/dxf/r12/names.h"

#include "DbBlockTable.h"
#include "drawing/model/object_store.h"

#include <unordered_set>

namespace drawing::dxf {

namespace {

constexpr std::size_t kLongest = 31;

bool isAllowed(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '$' || c == '-' || c == '_';
}

// Continuation bytes of UTF-8 belong to a character that was replaced already.
bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::string folded(std::string_view name) {
  return OdString::fromUtf8(name).makeUpper().toUtf8Lossless();
}

// A star begins anonymous names, a bar separates an external drawing's name from the record's own.
std::string allowed(std::string_view name) {
  std::string result;
  for (std::size_t i = 0; i < name.size() && result.size() < kLongest; ++i) {
    if (continues(name[i]))
      continue;
    const bool special = (name[i] == '*' && i == 0) || name[i] == '|';
    result += special || isAllowed(name[i]) ? name[i] : '_';
  }
  return result;
}

// Further layouts are ordinary blocks in R12, which has one layout.
std::string plainBlockName(const std::string& name) {
  const OdString text = OdString::fromUtf8(name);
  const bool isPaperSpace = text.left(paperSpaceStr.getLength()).iCompare(paperSpaceStr) == 0;
  return isPaperSpace && text.getLength() > paperSpaceStr.getLength() ? "$" + name.substr(1) : name;
}

} // namespace

R12Names::R12Names(const OdDbDatabase& database) {
  for (int kind = OdDb::kViewportTable + 1; kind < OdDb::kSymbolTableCount; ++kind)
    addTable(database, static_cast<OdDb::SymbolTableKind>(kind));
}

void R12Names::addTable(const OdDbDatabase& database, OdDb::SymbolTableKind kind) {
  const bool isOwn = database.fileInfo().version < OdDb::kRelease13;
  const auto& table = *getIf<OdDbSymbolTable>(database.getSymbolTableId(kind));
  std::unordered_set<std::string> taken;
  std::vector<Change> wanted;
  for (OdDbObjectId id : table.members().ids()) {
    if (!isAlive(id))
      continue;
    const std::string name = static_cast<const OdDbSymbolTableRecord*>(lookup(id))->getName().toUtf8Lossless();
    std::string to = kind == OdDb::kBlockTable ? plainBlockName(name) : name;
    if (!isOwn)
      to = allowed(to);
    if (to == name)
      taken.insert(folded(name)); // tiles of viewports share a name
    else
      wanted.push_back({id, name, to});
  }
  for (Change& change : wanted) { // names that stay come first
    const std::string base = change.to.substr(0, kLongest - 4);
    for (int number = 2; !taken.insert(folded(change.to)).second; ++number)
      change.to = base + "-" + std::to_string(number);
    names_[kind].emplace(folded(change.from), change.to);
    changes_.push_back(std::move(change));
  }
}

std::string_view R12Names::of(OdDb::SymbolTableKind table, std::string_view name) const {
  if (names_[table].empty())
    return name;
  const auto found = names_[table].find(folded(name));
  return found == names_[table].end() ? name : std::string_view(found->second);
}

void R12Names::reportChanges(GroupSink& sink) const {
  for (const Change& change : changes_)
    sink.lost({.code = "dxf.name-not-in-version",
               .severity = Severity::kLost,
               .groupCode = 2,
               .handle = std::uint64_t{change.record.getHandle()},
               .section = "TABLES",
               .kind = lookup(change.record)->dxfName(),
               .found = "version R12 cannot store the name \"" + change.from + "\"",
               .done = "it is written as \"" + change.to + "\""});
}

} // namespace drawing::dxf
