#include "console/maintenance/rename.h"
#include "console/messages/catalog/rename.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

#include <array>

namespace console::subcommands {
namespace {

struct RenameRequest {
  OdDb::SymbolTableKind kind;
  OdString from, to;
};

class Rename : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("rename", "Rename blocks, layers and styles of a drawing");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("-o,--output", files_.out, "Drawing to write").required();
    for (Option& option : options_)
      optionTable_->add(option.name, option.values, option.help);
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (!isChosen())
      return;
    for (const Option& option : options_) {
      for (const std::string& value : option.values)
        add(option, value);
    }
    if (requests_.empty())
      throw Failure{Status::kUsage, {msg::kNoRename, {}}};
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings,
                  {"rename", files_, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); }});
  }

private:
  struct Option {
    const char* name;
    OdDb::SymbolTableKind kind;
    const char* help;
    std::vector<std::string> values;
  };

  // No name has the sign in it.
  void add(const Option& option, const std::string& value) {
    const auto sign = value.find('=');
    if (sign == std::string::npos || sign == 0)
      refuseUsage(msg::kBadRename, option.name, value);
    requests_.push_back(
        {option.kind, OdString::fromUtf8(value.substr(0, sign)), OdString::fromUtf8(value.substr(sign + 1))});
  }

  void work(Session& session, Json& results) {
    results["renamed"] = Json::array();
    for (const RenameRequest& request : requests_) {
      renameSymbolRecord(session, request.kind, request.from, request.to);
      results["renamed"].push_back({{"kind", renameKindName(request.kind)},
                                    {"from", request.from.toUtf8Lossless()},
                                    {"to", request.to.toUtf8Lossless()}});
    }
  }

  void printSummary(Session& session) {
    for (const RenameRequest& request : requests_)
      session.print(msg::kRenamed, {OdString::fromUtf8(renameKindName(request.kind)), request.from, request.to});
  }

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  std::array<Option, 5> options_ = {{{"--block", OdDb::kBlockTable, "OLD=NEW of a block", {}},
                                     {"--layer", OdDb::kLayerTable, "OLD=NEW of a layer", {}},
                                     {"--linetype", OdDb::kLinetypeTable, "OLD=NEW of a linetype", {}},
                                     {"--style", OdDb::kTextStyleTable, "OLD=NEW of a text style", {}},
                                     {"--dimstyle", OdDb::kDimStyleTable, "OLD=NEW of a dimension style", {}}}};
  std::vector<RenameRequest> requests_;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Subcommand> renameSubcommand() {
  return std::make_unique<Rename>();
}

} // namespace console::subcommands
