#include "console/blocks/block_objects.h"
#include "console/blocks/make_block.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/catalog/usage.h"
#include "console/messages/number_text.h"
#include "console/prompts/selection.h"
#include "console/subcommands/job.h"
#include "console/subcommands/selector_options.h"
#include "console/subcommands/subcommand.h"

#include "DbDictionary.h"

namespace console::subcommands {
namespace {

// What was typed, before it is understood.
struct EnteredBlock {
  std::string name, base, ucs, units, description;
};

// The UCS of the options holds while the block is made; the drawing keeps its own header. Lives inside a step, which
// remembers the header as it was.
class BorrowedUcs {
public:
  BorrowedUcs(OdDbDatabase& database, const OdGeMatrix3d& ucs) : database_(database) {
    if (mvsi::mvsidbSetUcsMatrix(ucs, &database_) != RTNORM)
      throw OdError(eInvalidInput);
  }
  ~BorrowedUcs() {
    OdDbObjectIdArray header;
    header.append(database_.header().objectId());
    database_.restoreFromUndo(header);
  }
  BorrowedUcs(const BorrowedUcs&) = delete;
  BorrowedUcs& operator=(const BorrowedUcs&) = delete;

private:
  OdDbDatabase& database_;
};

Json handleOrNull(OdDbObjectId id) {
  return id.isNull() ? Json() : Json(id.getHandle().ascii());
}

class Make : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("make", "Make a block of objects in a drawing");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("-o,--output", files_.out, "Drawing to write").required();
    optionTable_->add("--name", entered_.name, "Name of the block").required();
    optionTable_->add("--base", entered_.base, "Base point X,Y[,Z]").required();
    optionTable_->add("--ucs", entered_.ucs, "Coordinate system of the block: origin/X axis/Y axis, each X,Y,Z");
    selectors_.describe(*optionTable_);
    describeOutcome();
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override;
  Status run(const SessionOptions& settings) override {
    return runJob(settings, {"make", files_, json_, [this](Session& session, Json& results) { make(session, results); },
                             [this](Session& session) { reportBlockMade(session, request_, made_); }});
  }

private:
  void describeOutcome() {
    OptionTable& outcome = optionTable_->addGroup("objects", "What happens to the objects", 0, 1);
    outcome.add("--keep", keep_, "Keep them");
    outcome.add("--convert", convert_, "Replace them by a reference (the default)");
    outcome.add("--delete", delete_, "Erase them");
    optionTable_->add("--redefine", request_.redefine, "Replace the block if it exists");
    optionTable_->add("--description", entered_.description, "Description of the block");
    optionTable_->add("--annotative", request_.annotative, "The block follows the annotation scale");
    optionTable_->add("--match-orientation", request_.matchOrientation,
                      "Its references follow the layout's orientation");
    optionTable_->add("--uniform", request_.scalesUniformly, "It is scaled uniformly only");
    optionTable_->add("!--no-explode", request_.explodable, "It cannot be exploded");
    optionTable_->add("--units", entered_.units, "Its units: mm, cm, m, in, ft ... or a code from 0 to 24");
  }
  void make(Session& session, Json& results);

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  EnteredBlock entered_;
  BlockRequest request_;
  BlockMade made_;
  std::optional<OdGeMatrix3d> ucs_;
  SelectorOptions selectors_;
  bool keep_ = false;
  bool convert_ = false; // what happens anyway
  bool delete_ = false;
  bool json_ = false;
};

void Make::check() {
  if (!isChosen())
    return;
  const auto base = parsePoint(entered_.base);
  if (!base)
    refuseUsage(msg::kBadPoint, "--base", entered_.base);
  request_.basePointUcs = *base;
  if (!entered_.ucs.empty() && !(ucs_ = parseUcs(entered_.ucs)))
    refuseUsage(msg::kBadUcs, "--ucs", entered_.ucs);
  if (!entered_.units.empty() && !(request_.units = parseUnits(entered_.units)))
    refuseUsage(msg::kBadUnits, "--units", entered_.units);
  selectors_.check();
  request_.name = OdString::fromUtf8(entered_.name);
  request_.description = OdString::fromUtf8(entered_.description);
  request_.sourceObjects = keep_ ? SourceObjects::kKeep : delete_ ? SourceObjects::kDelete : SourceObjects::kConvert;
  if (!selectors_.areGiven())
    throw Failure{Status::kUsage, {msg::kNoSelector, {}}};
}

void Make::make(Session& session, Json& results) {
  OdDbDatabase& database = session.database();
  request_.space = database.getModelSpaceId();
  const OdDbObjectIdArray picked = selectObjects(database, request_.space, selectors_.selectors());
  if (picked.isEmpty())
    refuse(msg::kNothingSelected);
  const BlockObjects objects = objectsForBlock(session, request_.name, picked);
  request_.ids = objects.ids;
  const BorrowedUcs ucs(database, ucs_.value_or(OdGeMatrix3d::kIdentity));
  made_ = makeBlock(session, request_);
  results["block"] = request_.name.toUtf8Lossless();
  results["handle"] = handleOrNull(made_.block);
  results["reference"] = handleOrNull(made_.reference);
  results["objects"] = made_.objects;
  results["locked"] = objects.locked;
  results["cameras"] = objects.cameras;
  results["dropped"] = made_.dropped;
}

} // namespace

std::unique_ptr<Subcommand> makeSubcommand() {
  return std::make_unique<Make>();
}

} // namespace console::subcommands
