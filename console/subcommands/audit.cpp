#include "console/maintenance/audit.h"
#include "console/messages/catalog/audit.h"
#include "console/messages/catalog/drawings.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {
namespace {

const char* outcomeName(const std::vector<drawing::Issue>& issues) {
  for (const drawing::Issue& issue : issues) {
    if (issue.severity != drawing::Severity::kNote)
      return "repaired";
  }
  return "whole";
}

class Audit : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("audit", "Find damage in a drawing");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("--fix", fix_, "Repair the problems");
    optionTable_->add("-o,--output", files_.out, "Repaired drawing to write");
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (isChosen() && fix_ == files_.out.empty())
      throw Failure{Status::kUsage, {msg::kFixNeedsOutput, {}}};
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings,
                  {"audit", files_, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); },
                   [this](const drawing::Report& report) { read_ = report; }});
  }

private:
  void work(Session& session, Json& results) {
    issues_ = read_.issues();
    const auto found = auditOpenDrawing(session, fix_);
    issues_.insert(issues_.end(), found.begin(), found.end());
    results["outcome"] = outcomeName(issues_);
    results["records"] = {{"read", read_.counts.read},
                          {"kept", read_.counts.opaque},
                          {"keptUnread", read_.counts.unparsed},
                          {"dropped", read_.counts.dropped}};
    results["unlisted"] = read_.suppressed();
  }

  void printSummary(Session& session) {
    const auto& counts = read_.counts;
    session.result(msg::kAuditSum,
                   {count(counts.read), count(counts.opaque), count(counts.unparsed), count(counts.dropped)});
    showIssues(session, issues_);
    if (read_.suppressed() != 0)
      session.result(msg::kMoreIssues, {OdString::fromUtf8(files_.in), count(read_.suppressed())});
  }

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  drawing::Report read_;
  std::vector<drawing::Issue> issues_; // of the reading, then of the audit
  bool fix_ = false;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Subcommand> auditSubcommand() {
  return std::make_unique<Audit>();
}

} // namespace console::subcommands
