#include "console/attributes/attributes.h"
#include "console/attributes/attribute_import.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/csv.h"
#include "console/messages/number_text.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {
namespace {

std::string flagsText(const AttributeRow& row) {
  std::string text;
  for (const char* flag : row.flags)
    text += (text.empty() ? "" : " ") + std::string(flag);
  return text;
}

Json jsonOf(const AttributeRow& row) {
  return {{"handle", row.reference.getHandle().ascii()},
          {"block", row.block.toUtf8Lossless()},
          {"tag", row.tag.toUtf8Lossless()},
          {"ordinal", row.ordinal},
          {"value", row.value.toUtf8Lossless()},
          {"flags", row.flags}};
}

std::string csvOf(const std::vector<AttributeRow>& rows) {
  std::string text = csvRow({"handle", "block", "tag", "ordinal", "value", "flags"});
  for (const AttributeRow& row : rows)
    text += csvRow({row.reference.getHandle().ascii(), row.block.toUtf8Lossless(), row.tag.toUtf8Lossless(),
                    std::to_string(row.ordinal), row.value.toUtf8Lossless(), flagsText(row)});
  return text;
}

class Attributes : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ =
        &program.addSubcommand("attributes", "List the attributes of all references, or set them from a CSV file");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("--csv", csv_, "Print CSV").excludes("--json").excludes("--import");
    optionTable_->add("--json", json_, "Print one JSON object");
    optionTable_->add("--import", import_, "CSV file with the values to set, as --csv prints it");
    optionTable_->add("-o,--output", files_.out, "Drawing to write");
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (isChosen() && import_.empty() != files_.out.empty())
      throw Failure{Status::kUsage, {msg::kImportNeedsOutput, {}}};
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings,
                  {"attributes", files_, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); }});
  }

private:
  void work(Session& session, Json& results) {
    if (!import_.empty())
      return import(session, results);
    rows_ = attributesOf(session.database());
    results["attributes"] = Json::array();
    for (const AttributeRow& row : rows_)
      results["attributes"].push_back(jsonOf(row));
  }

  void import(Session& session, Json& results) {
    imported_ = importAttributes(session.database(), import_);
    results["changed"] = imported_.changed;
    results["same"] = imported_.same;
    results["misfits"] = Json::array();
    for (const ImportedAttributes::Misfit& misfit : imported_.misfits)
      results["misfits"].push_back(
          {{"line", misfit.line}, {"id", misfit.reason.format.id}, {"text", misfit.reason.text().toUtf8Lossless()}});
  }

  void printSummary(Session& session) {
    if (!import_.empty())
      return reportImported(session);
    if (csv_)
      return session.printReport(OdString::fromUtf8(csvOf(rows_)));
    for (const AttributeRow& row : json_ ? std::vector<AttributeRow>() : rows_)
      session.result(msg::kAttributeRow, {handleText(row.reference), row.block, attributeName(row), row.value});
    session.print(msg::kAttributeCount, {count(rows_.size())});
  }

  void reportImported(Session& session) {
    for (const ImportedAttributes::Misfit& misfit : imported_.misfits)
      session.print(msg::kImportMisfit, {OdString::fromUtf8(import_), count(misfit.line), misfit.reason.text()});
    session.print(msg::kImported, {count(imported_.changed), count(imported_.same), count(imported_.misfits.size())});
    if (!imported_.misfits.empty())
      session.raiseStatus(Status::kRepaired);
  }

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  std::string import_;
  std::vector<AttributeRow> rows_;
  ImportedAttributes imported_;
  bool csv_ = false;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Subcommand> attributesSubcommand() {
  return std::make_unique<Attributes>();
}

} // namespace console::subcommands
