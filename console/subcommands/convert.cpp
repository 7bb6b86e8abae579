#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {
namespace {

class Convert : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("convert", "Write a drawing in another version");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("-o,--output", files_.out, "Drawing to write").required();
    optionTable_->add("--as", version_, "Version: 12, 2000, 2004, 2007, 2010, 2013 or 2018 (that of FILE)");
    optionTable_->add("--binary", binary_, "Write binary DXF");
    optionTable_->add("--text", text_, "Write text DXF (without either: the format of FILE)").excludes("--binary");
    optionTable_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    files_.version = versionOption(version_);
    files_.form = binary_ ? drawing::WriteOptions::kBinary
                  : text_ ? drawing::WriteOptions::kText
                          : drawing::WriteOptions::kAsRead;
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings, {"convert", files_, json_, nullptr, nullptr});
  }

private:
  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  std::string version_;
  bool binary_ = false;
  bool text_ = false;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Subcommand> convertSubcommand() {
  return std::make_unique<Convert>();
}

} // namespace console::subcommands
