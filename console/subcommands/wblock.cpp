#include "console/messages/catalog/wblock.h"
#include "console/blocks/write_block_file.h"
#include "console/blocks/write_block_library.h"
#include "console/blocks/write_target.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/catalog/usage.h"
#include "console/messages/number_text.h"
#include "console/subcommands/job.h"
#include "console/subcommands/selector_options.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {
namespace {

class Wblock : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("wblock", "Write a block, objects or the whole drawing to a separate file");
    optionTable_->add("FILE", in_, "Drawing to read").required();
    describeSource();
    optionTable_->add("-o,--output", out_, "File to write (.dxf is added to a name without extension)");
    optionTable_->add("--base", base_, "Base point X,Y[,Z] (the block's own; 0,0 for objects; that of FILE)");
    optionTable_->add("--units", units_, "Its units: mm, cm, m, in, ft ... or a code from 0 to 24 (unchanged)");
    optionTable_->add("--as", version_, "Version: 12, 2000, 2004, 2007, 2010, 2013 or 2018 (that of FILE)");
    optionTable_->add("--binary", binary_, "Write binary DXF");
    optionTable_->add("--force", force_, "Replace files that exist");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override;
  Status run(const SessionOptions& settings) override {
    JobFiles files;
    files.in = in_;
    Job job{"wblock", files, json_, [this](Session& session, Json& results) { work(session, results); },
            [this](Session& session) { printSummary(session); }};
    job.before = [this](Session& session) { checkTarget(session); };
    return runJob(settings, job);
  }

private:
  void describeSource() {
    optionTable_->add("--block", block_, "Block definition to write");
    selectors_.describe(*optionTable_);
    optionTable_->add("--all", all_, "The whole drawing, without unused definitions");
    optionTable_->add("--every-block", folder_, "Every definition, each to a file with a thumbnail in this folder");
    optionTable_->add("!--no-anonymous", withAnonymous_, "Skip anonymous definitions").needs("--every-block");
    optionTable_->add("!--no-previews", withPreviews_, "No thumbnails").needs("--every-block");
  }
  bool isLibrary() const { return !folder_.empty(); }
  void checkTarget(Session& session);
  BlockFileSource source(Session& session) const;
  void work(Session& session, Json& results);
  Json writeOne(Session& session);
  void printSummary(Session& session) const;

  OptionTable* optionTable_ = nullptr;
  std::string in_, out_, block_, folder_, base_, units_, version_;
  SelectorOptions selectors_;
  BlockFileRequest request_;
  BlockFile written_;
  Json manifest_;
  bool all_ = false, binary_ = false, force_ = false, json_ = false;
  bool withAnonymous_ = true, withPreviews_ = true;
};

void Wblock::check() {
  if (!isChosen())
    return;
  const int sources = (optionTable_->isGiven("--block") ? 1 : 0) + (selectors_.areGiven() ? 1 : 0) + (all_ ? 1 : 0) +
                      (isLibrary() ? 1 : 0);
  if (sources != 1)
    throw Failure{Status::kUsage, {msg::kOneSource, {}}};
  if (isLibrary() ? !out_.empty() || !base_.empty() : out_.empty())
    throw Failure{Status::kUsage, {isLibrary() ? msg::kLibraryNoOutput : msg::kNoOutputFile, {}}};
  selectors_.check();
  if (!base_.empty() && !(request_.basePoint = parsePoint(base_)))
    refuseUsage(msg::kBadPoint, "--base", base_);
  if (!units_.empty() && !(request_.units = parseUnits(units_)))
    refuseUsage(msg::kBadUnits, "--units", units_);
  request_.version = versionOption(version_);
  request_.form = binary_ ? drawing::WriteOptions::kBinary : drawing::WriteOptions::kText;
  request_.mayReplace = force_;
}

// Before anything is read.
void Wblock::checkTarget(Session& session) {
  if (isLibrary())
    return;
  request_.path = givenTarget(session, completeName(session, OdString::fromUtf8(out_)), force_);
}

BlockFileSource Wblock::source(Session& session) const {
  if (all_)
    return WholeDrawing();
  if (selectors_.areGiven()) {
    OdDbDatabase& database = session.database();
    OdDbObjectIdArray ids = selectObjects(database, database.getModelSpaceId(), selectors_.selectors());
    if (ids.isEmpty())
      refuse(msg::kNothingSelected);
    return ids;
  }
  const OdString name = OdString::fromUtf8(block_);
  const OdDbObjectId block = definitionToWrite(session, name);
  if (block.isNull())
    refuse(msg::kNoSuchBlock, {name});
  return block;
}

Json Wblock::writeOne(Session& session) {
  request_.source = source(session);
  refuseOpenDrawing(session, request_.path);
  written_ = writeBlockFile(session, request_);
  rememberTarget(session, written_.path, written_.version);
  return {{"file", written_.path},
          {"version", drawing::versionYear(written_.version)},
          {"objects", written_.count.objects},
          {"types", written_.count.types},
          {"definitions", written_.count.definitions},
          {"base", Json::array({written_.basePoint.x, written_.basePoint.y, written_.basePoint.z})},
          {"units", static_cast<int>(written_.units)},
          {"dropped", written_.dropped}};
}

void Wblock::work(Session& session, Json& results) {
  if (!isLibrary()) {
    results = writeOne(session);
    return;
  }
  LibraryRequest request;
  request.folder = folder_;
  request.each = request_;
  request.withAnonymous = withAnonymous_;
  request.withPreviews = withPreviews_;
  manifest_ = writeLibrary(session, request);
  results = manifest_;
}

void Wblock::printSummary(Session& session) const {
  if (!isLibrary())
    return reportBlockFile(session, written_);
  for (const Json& one : manifest_.at("leftOut").items())
    session.print(msg::kLibrarySkipped,
                  {OdString::fromUtf8(one.at("block").text()), OdString::fromUtf8(one.at("reason").text())});
  session.result(msg::kLibraryWritten, {count(manifest_.at("blocks").size()), OdString::fromUtf8(folder_)});
}

} // namespace

std::unique_ptr<Subcommand> wblockSubcommand() {
  return std::make_unique<Wblock>();
}

} // namespace console::subcommands
