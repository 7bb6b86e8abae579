#include "console/verbs/job.h"
#include "console/verbs/verb.h"

namespace console::verbs {
namespace {

class Convert : public Verb {
public:
  void describe(OptionTable& program) override {
    verb_ = &program.addVerb("convert", "Write a drawing in another version");
    verb_->add("FILE", files_.in, "Drawing to read").required();
    verb_->add("-o,--output", files_.out, "Drawing to write").required();
    verb_->add("--as", version_, "Version: 12, 2000, 2004, 2007, 2010, 2013 or 2018 (that of FILE)");
    verb_->add("--binary", binary_, "Write binary DXF");
    verb_->add("--text", text_, "Write text DXF (without either: the form of FILE)").excludes("--binary");
    verb_->add("--force", files_.force, "Replace a file that exists, or one that was repaired");
    verb_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return verb_->isChosen(); }
  void check() override {
    files_.version = versionOption(version_);
    files_.form = binary_ ? drawing::WriteOptions::Binary
                  : text_ ? drawing::WriteOptions::Text
                          : drawing::WriteOptions::AsRead;
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings, {"convert", files_, json_, nullptr, nullptr});
  }

private:
  OptionTable* verb_ = nullptr;
  JobFiles files_;
  std::string version_;
  bool binary_ = false;
  bool text_ = false;
  bool json_ = false;
};

} // namespace

std::unique_ptr<Verb> convertVerb() {
  return std::make_unique<Convert>();
}

} // namespace console::verbs
