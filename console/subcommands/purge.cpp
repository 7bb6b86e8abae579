#include "console/maintenance/purge.h"
#include "console/messages/catalog/purge.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {
namespace {

Json jsonOf(const NamedObject& object) {
  return {{"kind", object.kind}, {"name", object.name.toUtf8Lossless()}, {"handle", object.id.getHandle().ascii()}};
}

Json jsonOf(const drawing::PurgePlan::Use& use) {
  Json json;
  if (use.by.isNull())
    json["variable"] = use.variable;
  else
    json = jsonOf(namedObject(use.by));
  json["times"] = use.times;
  return json;
}

const char* statusName(drawing::PurgePlan::Status status) {
  constexpr const char* kNames[] = {"purgeable", "used", "needed", "external", "none"};
  return kNames[static_cast<std::size_t>(status)];
}

class Purge : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("purge", "Remove unused blocks, layers and styles");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("-o,--output", files_.out, "Drawing to write");
    optionTable_->add("--kind", kinds_, "Only objects of this kind: block, layer, \"line type\" ... (all)")
        .oneOf(purgeKindNames());
    optionTable_->add("--dry-run", dry_, "List what can be purged, and write nothing");
    optionTable_->add("--why", why_, "List why the others are kept");
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (isChosen() && dry_)
      files_.out.clear();
    else if (isChosen() && files_.out.empty())
      throw Failure{Status::kUsage, {msg::kNoOutput, {}}};
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings,
                  {"purge", files_, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); }});
  }

private:
  void work(Session& session, Json& results) {
    OdDbDatabase& database = session.database();
    const std::vector<NamedObject> objects = objectsToPurge(database, kinds_);
    if (why_)
      reportKept(session, keptObjects(database, objects), results);
    purged_ = dry_ ? purgeable(database, objects) : console::purge(database, objects);
    results["purged"] = Json::array();
    for (const NamedObject& object : purged_)
      results["purged"].push_back(jsonOf(object));
  }

  static void reportKept(Session& session, const std::vector<KeptObject>& all, Json& results) {
    results["kept"] = Json::array();
    for (const KeptObject& kept : all) {
      Json json = jsonOf(kept.object);
      json["standing"] = statusName(kept.status);
      json["uses"] = Json::array();
      for (const drawing::PurgePlan::Use& use : kept.uses)
        json["uses"].push_back(jsonOf(use));
      results["kept"].push_back(std::move(json));
      session.result(msg::kNotPurged, {OdString::fromUtf8(kept.object.kind), kept.object.name, reasonOf(kept)});
    }
  }

  void printSummary(Session& session) {
    for (const NamedObject& object : purged_)
      session.result(dry_ ? msg::kPurgeable : msg::kPurged, {OdString::fromUtf8(object.kind), object.name});
    if (purged_.empty())
      session.print(msg::kNothingToPurge);
    else if (!dry_)
      session.print(msg::kPurgeCount, {count(purged_.size())});
  }

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  std::vector<std::string> kinds_;
  std::vector<NamedObject> purged_;
  bool dry_ = false;
  bool why_ = false;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Subcommand> purgeSubcommand() {
  return std::make_unique<Purge>();
}

} // namespace console::subcommands
