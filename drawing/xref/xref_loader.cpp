#include "drawing/xref.h"

#include "DbBlockTable.h"
#include "drawing/file.h"
#include "drawing/files.h"
#include "drawing/model/object_store.h"
#include "drawing/model/xref_table.h"
#include "drawing/xref/xref_blocks.h"

#include <map>
#include <tuple>

namespace drawing {
namespace {

// Device and file where the system knows them, so that two paths of one file are one.
struct FileKey {
  std::uint64_t device = 0;
  std::uint64_t file = 0;
  std::string path;
  bool operator<(const FileKey& other) const {
    return std::tie(device, file, path) < std::tie(other.device, other.file, other.path);
  }
};

FileKey keyOf(const std::string& path) {
  FileStatus status;
  if (!path.empty() && fileOperations().stat(path, status).ok())
    return {status.device, status.file, {}};
  return {0, 0, path};
}

// Depth first over drawings. A drawing is open while those that it refers to are loaded; a reference to an open one
// closes a cycle and holds it weakly.
class Loading {
public:
  Loading(const XrefLoader& loader, const XrefLimits& limits) : loader_(loader), limits_(limits) {}

  Report run(OdDbDatabase& host) {
    Known& known = known_[keyOf(host.fileInfo().path)];
    known.database = OdDbDatabasePtr(&host);
    enter(known);
    while (!stack_.empty()) {
      Frame& frame = stack_.back();
      if (frame.next == frame.blocks.size())
        leave();
      else
        load(*frame.blocks[frame.next++]);
    }
    return std::move(report_);
  }

private:
  struct Known {
    OdDbDatabasePtr database; // null: refused
    bool isOpen = false;
    const char* code = ""; // why it was refused, or what was repaired
    std::string message;
  };
  struct Frame {
    Known* known;
    std::vector<OdDbBlockTableRecord*> blocks;
    std::size_t next = 0;
  };

  bool isNested() const { return stack_.size() > 1; }
  OdDbDatabase& referring() const { return *stack_.back().known->database; }

  void enter(Known& known) {
    known.isOpen = true;
    known.database->xrefs().clear();
    stack_.push_back({&known, xrefsIn(*known.database)});
  }
  void leave() {
    stack_.back().known->isOpen = false;
    stack_.pop_back();
  }

  void load(const OdDbBlockTableRecord& block) {
    if (block.isUnloaded())
      stay(block, XrefStatus::kUnloaded, "xref.unloaded", "unloaded by the user");
    else if (isNested() && block.isFromOverlayReference())
      set(block, {XrefStatus::kNotFollowed, {}, {}});
    else
      follow(block);
  }
  void follow(const OdDbBlockTableRecord& block);
  void open(const std::string& path, Known& known);
  void refer(const OdDbBlockTableRecord& block, const Known& known);
  void stay(const OdDbBlockTableRecord& block, XrefStatus status, const char* code, const std::string& found) {
    set(block, {status, {}, {}});
    note(block, code, found);
  }
  void set(const OdDbBlockTableRecord& block, XrefEntry entry) {
    referring().xrefs().set(block.objectId(), std::move(entry));
  }
  void note(const OdDbBlockTableRecord& block, const char* code, const std::string& found);

  const XrefLoader& loader_;
  const XrefLimits& limits_;
  std::vector<Frame> stack_;
  std::map<FileKey, Known> known_;
  std::size_t opened_ = 0;
  Report report_;
};

void Loading::note(const OdDbBlockTableRecord& block, const char* code, const std::string& found) {
  Issue issue;
  issue.code = code;
  issue.kind = "BLOCK";
  if (!isNested())
    issue.handle = block.getDbHandle();
  issue.found = "external reference \"" + block.getName().toUtf8Lossless() + "\"" +
                (isNested() ? " in \"" + referring().fileInfo().path + "\"" : std::string()) + ": " + found;
  issue.done = "it is kept unchanged";
  report_.add(std::move(issue));
}

void Loading::follow(const OdDbBlockTableRecord& block) {
  const std::string path = loader_.find ? loader_.find(block.pathName(), referring()) : std::string();
  if (path.empty())
    return stay(block, XrefStatus::kNotFound, "xref.not-found",
                "file not found: \"" + block.pathName().toUtf8Lossless() + "\"");
  const auto [place, isNew] = known_.try_emplace(keyOf(path));
  Known& known = place->second;
  if (isNew)
    open(path, known);
  refer(block, known);
  if (isNew && !known.database.isNull())
    enter(known);
}

void Loading::open(const std::string& path, Known& known) {
  if (opened_ >= limits_.drawings || stack_.size() > limits_.depth) {
    known.code = "xref.limit";
    known.message = "\"" + path + "\" exceeds the limit of nested or loaded drawings";
    return;
  }
  ++opened_;
  ReadResult read = loader_.open ? loader_.open(path) : readDrawing(path);
  known.database = read.database;
  if (read.database.isNull()) {
    known.code = "xref.refused";
    known.message = read.message;
  } else if (read.report.outcome() != Outcome::kWhole) {
    known.code = "xref.repaired";
    known.message = "\"" + path + "\" was damaged and is repaired in memory";
  }
}

void Loading::refer(const OdDbBlockTableRecord& block, const Known& known) {
  if (known.database.isNull())
    return stay(block, XrefStatus::kRefused, known.code, known.message);
  if (known.isOpen) {
    set(block, {XrefStatus::kCycle, {}, known.database->getBlockTableId()});
    return note(block, "xref.cycle", "\"" + block.pathName().toUtf8Lossless() + "\" is in a reference cycle");
  }
  set(block, {XrefStatus::kLoaded, known.database, {}});
  if (!known.message.empty())
    note(block, known.code, known.message);
}

} // namespace

Report loadXrefs(OdDbDatabase& host, const XrefLoader& loader, const XrefLimits& limits) {
  return Loading(loader, limits).run(host);
}

} // namespace drawing
