// What the description-driven reading of an object needs: one group of a file, and the means to turn it into values.
#pragma once

#include "DbDatabase.h"
#include "DbGroups.h"
#include "DbReport.h"
#include "DbSymbolTable.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace drawing {

// One group as the file holds it. Text files give text only; binary files give numbers as they are. Views point into
// the file's memory and live as long as the reading.
struct Pair {
  enum class Form : std::uint8_t { Text, Real, Integer, Bytes };
  int code = 0;
  Form form = Form::Text;
  std::string_view text;
  double real = 0;
  std::int64_t integer = 0;
  std::uint64_t line = 0; // of the value; the byte offset in binary files
};

// Decodes the text of a file into lossless UTF-8 (see OdString::fromUtf8).
class TextDecoder {
public:
  virtual ~TextDecoder() = default;
  // Answers `bytes` itself when they are what they should be, else the decoded text in `buffer`.
  virtual std::string_view decode(std::string_view bytes, std::string& buffer) = 0;
};

class MVDRAWING_API LoadContext {
public:
  LoadContext(OdDbDatabase& database, TextDecoder& decoder, Report& report)
      : database_(database), decoder_(decoder), report_(report) {}

  OdDbDatabase& database() { return database_; }
  Report& report() { return report_; }

  // Values. A number that is not readable or not finite fails the record that is being read (see failed) and leaves
  // the value alone.
  bool real(const Pair& pair, double& value);
  bool integer(const Pair& pair, std::int64_t& value);
  // One that is out of range for so many bits fails the record, too.
  bool integer(const Pair& pair, std::int64_t& value, int bits);
  std::string_view utf8(const Pair& pair); // valid until the next call
  OdString text(const Pair& pair) { return OdString::fromUtf8(utf8(pair)); }
  bool handle(const Pair& pair, std::uint64_t& value);
  static bool isHandle(const Pair& pair);
  bool bytes(const Pair& pair, std::string& value); // appends; hexadecimal in text files
  OdDbObjectId reference(const Pair& pair);         // of an object that may still come
  // A table; made when the drawing has none of the kind yet, with that handle.
  OdDbSymbolTable& table(OdDb::SymbolTableKind kind, OdDbHandle handle = 0);
  // A record by name. One that does not exist (yet) is made and remembered as missing until the table brings it.
  OdDbObjectId symbol(OdDb::SymbolTableKind kind, const Pair& pair);
  // Appends the group under its kind; what does not fit its code is appended as unread text.
  void append(GroupList& list, const Pair& pair);

  // Where the record of an object began, for what is found out when all of the drawing is there; 0 unknown.
  void setLineOf(OdDbObjectId id, std::uint64_t line);
  std::uint64_t lineOf(OdDbObjectId id) const { return id.number() < lines_.size() ? lines_[id.number()] : 0; }

  // A place for the issue that a hook wants to tell.
  void tell(Issue issue, const Pair* pair = nullptr);
  void fail(const Pair& pair, const char* reason);

  // The record that is being read.
  void begin(std::string_view kind, std::uint64_t line);
  bool failed() const { return failed_; }
  void setHandle(std::uint64_t handle) { handle_ = handle; }
  void setSection(std::string_view section) { section_ = section; }

  // Records that were asked for by name before (or without) being defined.
  std::unordered_map<OdDbObjectId, std::uint64_t>& missing() { return missing_; }
  // Stand-ins whose record came later: from, to.
  std::vector<std::pair<OdDbObjectId, OdDbObjectId>>& redirects() { return redirects_; }

private:
  struct NameCache { // files repeat the name of the layer for every entity
    std::string bytes;
    OdDbObjectId id;
  };

  OdDbObjectId makeMissing(OdDb::SymbolTableKind kind, const OdString& name, const Pair& pair);

  OdDbDatabase& database_;
  TextDecoder& decoder_;
  Report& report_;
  std::string buffer_;
  NameCache names_[OdDb::kSymbolTableCount];
  std::unordered_map<OdDbObjectId, std::uint64_t> missing_;
  std::vector<std::pair<OdDbObjectId, OdDbObjectId>> redirects_;
  std::vector<std::uint32_t> lines_; // by object number
  std::string section_;
  std::string kind_;
  std::uint64_t line_ = 0;
  std::uint64_t handle_ = 0;
  bool failed_ = false;
};

// Takes one group by a description: into its field, by the section's own reader, or not at all.
class MVDRAWING_API SectionReader {
public:
  SectionReader(OdDbObject& object, const Section& section, LoadContext& context)
      : object_(object), section_(section), context_(context) {}
  bool take(const Pair& pair);

private:
  bool store(const Field& field, const Pair& pair);
  OdDbObjectId reference(const Field& field, const Pair& pair);

  OdDbObject& object_;
  const Section& section_;
  LoadContext& context_;
  // A field takes its code once. Files use some codes again in the same section for something else; those groups are
  // nobody's and are carried.
  bool markTaken(std::size_t field, int component);

  std::size_t next_ = 0;               // groups come in the order of the fields most of the time
  std::uint64_t taken_[3] = {0, 0, 0}; // a bit a field, for each component
  bool embedded_ = false; // behind code 101 the groups belong to an embedded object: no field of ours is among them
};

// Writes the fields of a section in order, then what its own writer adds. Fields of later versions than the sink's
// are left out.
void writeSection(const OdDbObject& object, const Section& section, GroupSink& sink);
// Writes everything behind the owner: markers, fields, carried groups. Extended data is not included.
MVDRAWING_API void writeSections(const OdDbObject& object, GroupSink& sink);

// A name under which a file holds a reference to a record; "" for none.
OdString symbolName(OdDbObjectId id);

} // namespace drawing
