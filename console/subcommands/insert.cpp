#include "console/messages/catalog/insert.h"
#include "console/attributes/attribute_answers.h"
#include "console/attributes/attributes.h"
#include "console/blocks/insert_preview.h"
#include "console/blocks/insert_source.h"
#include "console/blocks/make_block.h"
#include "console/blocks/reference_placement.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/purge.h"
#include "console/messages/catalog/usage.h"
#include "console/messages/number_text.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

#include "DbBlockTable.h"
#include "blockcommon/insertion.h"

#include <filesystem>
#include <fstream>
#include <numbers>

namespace console::subcommands {
namespace {

struct EnteredInsertion {
  std::string block, file, list, name, at = "0,0", scale, rotate, grid, conflictPolicy;
  std::string rowSpacing = "0", columnSpacing = "0";
  std::vector<std::string> attributes;
};

double realOption(const char* option, const std::string& value) {
  const auto number = parseReal(value);
  if (!number)
    refuseUsage(msg::kBadNumber, option, value);
  return *number;
}

std::vector<double> realsOption(const char* option, const std::string& value) {
  std::vector<double> numbers;
  std::size_t from = 0;
  for (std::size_t comma = 0; comma != std::string::npos; from = comma + 1) {
    comma = value.find(',', from);
    numbers.push_back(realOption(option, value.substr(from, comma == std::string::npos ? comma : comma - from)));
  }
  return numbers;
}

ConflictPolicy conflictOption(const std::string& value, ConflictPolicy usual) {
  const std::pair<const char*, ConflictPolicy> kAll[] = {{"refuse", ConflictPolicy::kRefuse},
                                                         {"keep", ConflictPolicy::kKeep},
                                                         {"replace", ConflictPolicy::kReplace},
                                                         {"rename", ConflictPolicy::kRename}};
  for (const auto& [name, conflict] : kAll) {
    if (value == name)
      return conflict;
  }
  return usual;
}

const char* resolutionName(ImportedBlock::Resolution resolution) {
  constexpr const char* kNames[] = {"made", "replaced", "kept", "shared", "renamed"};
  return kNames[static_cast<std::size_t>(resolution)];
}

// Paths of a list: one in a line; empty lines and those that begin with '#' are skipped. Relative ones start at the
// folder of the list.
std::vector<std::string> listedFiles(const std::string& path) {
  std::ifstream file(path);
  if (!file)
    throw Failure{Status::kUnreadable, {msg::kListUnreadable, {OdString::fromUtf8(path)}}};
  std::vector<std::string> paths;
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  for (std::string line; std::getline(file, line);) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
      line.pop_back();
    if (!line.empty() && line[0] != '#')
      paths.push_back((folder / line).string());
  }
  return paths;
}

class Insert : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("insert", "Insert a block, or drawing files as blocks");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("-o,--output", files_.out, "Drawing to write");
    OptionTable& source = optionTable_->addGroup("source", "What to insert", 1, 1);
    source.add("--block", entered_.block, "A block of the drawing");
    source.add("--file", entered_.file, "A drawing file");
    source.add("--file-list", entered_.list, "All drawing files of a list, one path per line");
    optionTable_->add("--name", entered_.name, "Name of the block that --file makes (that of the file)");
    optionTable_->add("--on-clash", entered_.conflictPolicy, "When a block of that name exists (refuse; lists: rename)")
        .oneOf({"refuse", "keep", "replace", "rename"});
    describePlacement();
    optionTable_->add("--attr", entered_.attributes, "TAG=VALUE, or TAG#2=VALUE for the second of that tag");
    optionTable_->add("--defaults", answers_.takesDefaults,
                      "Use the default values of the definitions for missing values");
    optionTable_->add("--dry-run", dry_, "Report what would happen, and write nothing");
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override;
  Status run(const SessionOptions& settings) override {
    Job job{"insert", files_, json_, [this](Session& session, Json& results) { work(session, results); },
            [this](Session& session) { printSummary(session); }};
    job.isInteractive = true;
    return runJob(settings, job);
  }

private:
  struct Done {
    std::string path; // empty for a block of the drawing
    ImportedBlock in;
    OdDbObjectId reference;
    double factor = 1;
  };

  void describePlacement() {
    optionTable_->add("--at", entered_.at, "Insertion point X,Y[,Z] (0,0)");
    optionTable_->add("--scale", entered_.scale, "S, or SX,SY,SZ (1)");
    optionTable_->add("--rotate", entered_.rotate, "Degrees about the z axis (0)");
    optionTable_->add("--rows", placement_.rows, "Rows (1)").between(1, 32767);
    optionTable_->add("--columns", placement_.columns, "Columns (1)").between(1, 32767);
    optionTable_->add("--row-spacing", entered_.rowSpacing, "Distance between rows (0)");
    optionTable_->add("--column-spacing", entered_.columnSpacing, "Distance between columns (0)");
    optionTable_->add("--grid", entered_.grid, "COLUMNS,DX,DY: where the files of a list go, row by row from --at");
  }

  void checkPlacement();
  void work(Session& session, Json& results);
  void insertList(Session& session);
  Done insertFile(Session& session, const std::string& path, const OdString& name, const Placement& placement) const;
  Done place(Session& session, const std::string& path, const ImportedBlock& in, const Placement& placement) const;
  Placement placeInGrid(std::size_t number) const;
  void printSummary(Session& session) const;
  static Json jsonOf(const Done& done);

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  EnteredInsertion entered_;
  Placement placement_;
  AttributeAnswers answers_;
  ConflictPolicy conflictPolicy_ = ConflictPolicy::kRefuse;
  std::vector<double> grid_; // columns, and the two distances
  std::vector<Done> done_;
  std::size_t failed_ = 0;
  bool dry_ = false;
  bool json_ = false;
};

void Insert::check() {
  if (!isChosen())
    return;
  if (dry_)
    files_.out.clear();
  else if (files_.out.empty())
    throw Failure{Status::kUsage, {msg::kNoOutput, {}}};
  if (!entered_.name.empty() && entered_.file.empty())
    throw Failure{Status::kUsage, {msg::kNameNeedsFile, {}}};
  if (!entered_.grid.empty() && entered_.list.empty())
    throw Failure{Status::kUsage, {msg::kGridNeedsList, {}}};
  conflictPolicy_ = conflictOption(entered_.conflictPolicy,
                                   entered_.list.empty() ? ConflictPolicy::kRefuse : ConflictPolicy::kRename);
  for (const std::string& given : entered_.attributes) {
    const auto equals = given.find('=');
    if (equals == 0 || equals == std::string::npos)
      refuseUsage(msg::kBadAttribute, "--attr", given);
    answers_.given.emplace_back(OdString::fromUtf8(given.substr(0, equals)),
                                OdString::fromUtf8(given.substr(equals + 1)));
  }
  checkPlacement();
}

void Insert::checkPlacement() {
  const auto at = parsePoint(entered_.at);
  if (!at)
    refuseUsage(msg::kBadPoint, "--at", entered_.at);
  placement_.at = *at;
  if (!entered_.scale.empty()) {
    const std::vector<double> scales = realsOption("--scale", entered_.scale);
    if (scales.size() != 1 && scales.size() != 3)
      refuseUsage(msg::kBadScale, "--scale", entered_.scale);
    placement_.scale = OdGeScale3d(scales[0], scales[scales.size() / 2], scales.back());
  }
  if (!entered_.rotate.empty())
    placement_.rotation = realOption("--rotate", entered_.rotate) * std::numbers::pi / 180;
  placement_.rowSpacing = realOption("--row-spacing", entered_.rowSpacing);
  placement_.columnSpacing = realOption("--column-spacing", entered_.columnSpacing);
  if (entered_.grid.empty())
    return;
  grid_ = realsOption("--grid", entered_.grid);
  if (grid_.size() != 3 || grid_[0] < 1 || grid_[0] > 1e6 ||
      grid_[0] != static_cast<double>(static_cast<int>(grid_[0])))
    refuseUsage(msg::kBadGrid, "--grid", entered_.grid);
}

Placement Insert::placeInGrid(std::size_t number) const {
  Placement placement = placement_;
  if (grid_.empty())
    return placement;
  const auto columns = static_cast<std::size_t>(grid_[0]);
  const std::size_t column = number % columns, row = number / columns;
  placement.at =
      placement_.at + OdGeVector3d(grid_[1] * static_cast<double>(column), grid_[2] * static_cast<double>(row), 0);
  return placement;
}

Insert::Done Insert::place(Session& session, const std::string& path, const ImportedBlock& in,
                           const Placement& placement) const {
  const OdDbBlockReferencePtr reference = placeReference(session, in.block, placement);
  fillAttributes(session, reference, answers_);
  return {path, in, reference->objectId(), unitsFactor(in.block)};
}

Insert::Done Insert::insertFile(Session& session, const std::string& path, const OdString& name,
                                const Placement& placement) const {
  const BlockSource source = readBlockSource(session, path, name);
  return place(session, path, importBlock(session, source, conflictPolicy_), placement);
}

// Each file is a separate step: one that fails is undone and reported, and the next one follows.
void Insert::insertList(Session& session) {
  const std::vector<std::string> paths = listedFiles(entered_.list);
  for (std::size_t number = 0; number < paths.size(); ++number) {
    const Status status = session.attempt("INSERT", Command::Kind::kModifies, [&] {
      done_.push_back(insertFile(session, paths[number], {}, placeInGrid(number)));
    });
    if (status == Status::kDone)
      continue;
    session.print(msg::kListFailed, {OdString::fromUtf8(paths[number])});
    ++failed_;
  }
}

void Insert::work(Session& session, Json& results) {
  if (dry_) {
    const std::vector<std::string> paths = !entered_.list.empty()   ? listedFiles(entered_.list)
                                           : !entered_.file.empty() ? std::vector<std::string>{entered_.file}
                                                                    : std::vector<std::string>{};
    results["preview"] = Json::array();
    for (const std::string& path : paths)
      results["preview"].push_back(previewFile(session, path, OdString::fromUtf8(entered_.name), answers_));
    if (paths.empty())
      results["preview"].push_back(previewBlock(session, OdString::fromUtf8(entered_.block), answers_));
    return;
  }
  if (!entered_.list.empty()) {
    insertList(session);
  } else if (!entered_.file.empty()) {
    done_.push_back(insertFile(session, entered_.file, OdString::fromUtf8(entered_.name), placement_));
  } else {
    const OdString name = OdString::fromUtf8(entered_.block);
    const OdDbObjectId block = definitionOf(session, name);
    if (block.isNull())
      refuse(msg::kNoSuchBlock, {name});
    done_.push_back(place(session, {}, {ImportedBlock::Resolution::kKept, block, name, {}, {}}, placement_));
  }
  if (entered_.block.empty())
    insertCommon::checkExternalReference(session.drawing().document->fileName());
  results["inserted"] = Json::array();
  for (const Done& done : done_)
    results["inserted"].push_back(jsonOf(done));
  results["failed"] = failed_;
}

Json Insert::jsonOf(const Done& done) {
  Json json = {{"file", done.path.empty() ? Json() : Json(done.path)},
               {"block", done.in.name.toUtf8Lossless()},
               {"definition", done.path.empty() ? "own" : resolutionName(done.in.resolution)},
               {"handle", done.in.block.getHandle().ascii()},
               {"reference", done.reference.getHandle().ascii()},
               {"factor", done.factor},
               {"renamed", Json::array()},
               {"kept", Json::array()},
               {"attributes", Json::array()}};
  for (const ImportedBlock::Nested& nested : done.in.renamed)
    json["renamed"].push_back({{"name", nested.name.toUtf8Lossless()}, {"now", nested.now.toUtf8Lossless()}});
  for (const OdString& name : done.in.kept)
    json["kept"].push_back(name.toUtf8Lossless());
  const OdDbBlockReferencePtr reference = done.reference.safeOpenObject();
  const ReferenceAttributes attributes(*reference);
  for (const AttributeRow& row : attributes.rows())
    json["attributes"].push_back(
        {{"tag", row.tag.toUtf8Lossless()}, {"ordinal", row.ordinal}, {"value", row.value.toUtf8Lossless()}});
  return json;
}

void Insert::printSummary(Session& session) const {
  for (const Done& done : done_) {
    if (entered_.list.empty())
      session.print(msg::kUnitsFactor, {exactText(done.factor)});
    session.result(msg::kInserted, {done.in.name, handleText(done.reference)});
  }
  if (!entered_.list.empty() && !dry_)
    session.print(msg::kListSum, {count(done_.size()), count(failed_)});
}

} // namespace

std::unique_ptr<Subcommand> insertSubcommand() {
  return std::make_unique<Insert>();
}

} // namespace console::subcommands
