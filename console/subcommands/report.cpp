#include "console/report/report_json.h"
#include "console/report/report_table.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

#include "blockcommon/block_report.h"

namespace console::subcommands {
namespace {

class Report : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("report", "Report the blocks of a drawing and their reference counts");
    optionTable_->add("FILE", file_, "Drawing to read").required();
    optionTable_->add("--json", json_, "Print one JSON object");
    optionTable_->add("--all", all_, "Include layouts, anonymous blocks and blocks of external references");
    optionTable_->add("--dialog", dialog_, "Print the named blocks as the JSON list of dialogs")
        .excludes("--json")
        .excludes("--all");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {}
  Status run(const SessionOptions& settings) override;

private:
  void printJson(Session& session, const std::optional<report::DrawingReport>& made) const;

  OptionTable* optionTable_ = nullptr;
  std::string file_;
  bool json_ = false;
  bool all_ = false;
  bool dialog_ = false;
};

Status Report::run(const SessionOptions& settings) {
  Session session(settings);
  std::optional<report::DrawingReport> made;
  session.attempt("report", Command::Kind::kReadOnly, [&] {
    openDrawing(session, file_);
    if (dialog_)
      session.printReport(OdString::fromUtf8(blockUtils::getStatisticalCntsOfBT()->toText() + "\n"));
    else
      made = report::reportOf(session.database());
  });
  if (json_)
    printJson(session, made);
  else if (made)
    session.printReport(report::tableText(*made, all_));
  return session.status();
}

void Report::printJson(Session& session, const std::optional<report::DrawingReport>& made) const {
  Json report = {{"version", 1}, {"file", file_}, {"status", static_cast<int>(session.status())}};
  report.update(made ? report::toJson(*made, all_) : report::emptyJson());
  report["issues"] = report::issuesJson(session.issues());
  report["error"] = made ? Json() : Json(session.transcript().back().text.toUtf8Lossless());
  session.printReport(report::jsonText(report));
}

} // namespace

std::unique_ptr<Subcommand> reportSubcommand() {
  return std::make_unique<Report>();
}

} // namespace console::subcommands
