#include "console/messages/catalog/preview.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/drawings.h"
#include "console/subcommands/job.h"
#include "console/subcommands/preview_options.h"
#include "console/subcommands/subcommand.h"

#include "drawing/picture.h"

#include <optional>

namespace console::subcommands {
namespace {

struct Reason {
  const char* name;
  MessageText text;
};
constexpr Reason kReasons[] = {{"body", msg::kNotDrawnBody},
                               {"cycle", msg::kNotDrawnCycle},
                               {"depth-clip", msg::kNotDrawnDepthClip},
                               {"document", msg::kNotDrawnDocument},
                               {"fine-pattern", msg::kNotDrawnFinePattern},
                               {"kind", msg::kNotDrawnKind},
                               {"letters", msg::kNotDrawnGlyphs},
                               {"no-block", msg::kNotDrawnNoBlock},
                               {"no-picture", msg::kNotDrawnNoPicture},
                               {"page", msg::kNotDrawnPage},
                               {"perspective", msg::kNotDrawnPerspective},
                               {"picture-file", msg::kNotDrawnPictureFile},
                               {"proxy", msg::kNotDrawnProxy},
                               {"shape-file", msg::kNotDrawnShapeFile},
                               {"smoothing", msg::kNotDrawnSmoothing},
                               {"tolerance-note", msg::kNotDrawnToleranceNote},
                               {"xref-not-loaded", msg::kNotDrawnXref},
                               {"xref-unloaded", msg::kNotDrawnXrefUnloaded}};

OdString reasonText(const std::string& name) {
  for (const Reason& reason : kReasons) {
    if (name == reason.name)
      return render(reason.text);
  }
  return OdString::fromUtf8(name);
}

class Preview : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ = &program.addSubcommand("preview", "Render a drawing, a block or a layout");
    optionTable_->add("FILE", in_, "Drawing to read").required();
    optionTable_->add("-o,--output", out_, "Image to write: .png or .svg").required();
    optionTable_->add("--block", block_, "Block definition to render instead of the space");
    optionTable_->add("--layout", layout_, "Layout to render; Model is model space (the current space of FILE)")
        .excludes("--block");
    optionTable_->add("--png", png_, "Write PNG, regardless of the file name");
    optionTable_->add("--svg", svg_, "Write SVG, regardless of the file name").excludes("--png");
    optionTable_->add("--size", size_, "Pixels, WxH (480x320)");
    optionTable_->add("--background", background_, "white, black, none or RRGGBB (white)");
    optionTable_->add("--force", force_, "Replace an image that exists");
    optionTable_->add("--json", json_, "Report as one JSON object");
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (!isChosen())
      return;
    if (!size_.empty() && !readPictureSize(size_, options_))
      refuseUsage(msg::kBadPictureSize, "--size", size_);
    if (!background_.empty() && !readBackground(background_, options_))
      refuseUsage(msg::kBadBackground, "--background", background_);
    isSvg_ = svg_ || (!png_ && hasEnding(out_, L".svg"));
    if (!svg_ && !png_ && !isSvg_ && !hasEnding(out_, L".png"))
      refuseUsage(msg::kBadPictureName, "-o", out_);
  }
  Status run(const SessionOptions& settings) override {
    JobFiles files;
    files.in = in_;
    return runJob(settings,
                  {"preview", files, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); }});
  }

private:
  static bool hasEnding(const std::string& path, const wchar_t* ending) {
    return OdString::fromUtf8(path).right(4).iCompare(ending) == 0;
  }

  OdDbObjectId subject(const OdDbDatabase& database) const {
    OdDbObjectId id = drawing::currentSpaceOf(database);
    if (!block_.empty())
      id = database.symbol(OdDb::kBlockTable, OdString::fromUtf8(block_));
    else if (!layout_.empty())
      id = drawing::layoutBlock(database, OdString::fromUtf8(layout_));
    if (id.isNull())
      refuse(block_.empty() ? msg::kNoSuchLayout : msg::kNoSuchBlock,
             {OdString::fromUtf8(block_.empty() ? layout_ : block_)});
    return id;
  }

  void work(Session& session, Json& results) {
    if (!force_ && fileExists(out_)) // before the work
      refuse(msg::kFileExists, {OdString::fromUtf8(out_)});
    const drawing::Picture picture(subject(session.database()), options_);
    report_ = picture.report();
    writeBytes(out_, isSvg_ ? picture.svg() : picture.png(), force_);
    results = jsonOf();
    if (!report_.notDrawn.empty() || report_.reachedLimit)
      session.raiseStatus(Status::kRepaired);
  }

  Json jsonOf() const {
    Json json = {{"file", out_},
                 {"form", isSvg_ ? "svg" : "png"},
                 {"width", options_.width},
                 {"height", options_.height},
                 {"empty", report_.isEmpty},
                 {"reachedLimit", report_.reachedLimit},
                 {"extents", nullptr},
                 {"notDrawn", Json::array()}};
    const OdGePoint3d &min = report_.extents.minPoint(), &max = report_.extents.maxPoint();
    if (report_.extents.isValidExtents())
      json["extents"] = Json::array({min.x, min.y, max.x, max.y});
    for (const drawing::NotDrawn& one : report_.notDrawn)
      json["notDrawn"].push_back(
          {{"kind", one.kind}, {"reason", one.reason}, {"count", one.count}, {"handle", one.first.ascii()}});
    return json;
  }

  void printSummary(Session& session) const {
    session.result(msg::kPictureMade, {OdString::fromUtf8(out_), count(static_cast<std::size_t>(options_.width)),
                                       count(static_cast<std::size_t>(options_.height))});
    if (report_.isEmpty)
      session.print(msg::kPictureEmpty);
    for (const drawing::NotDrawn& one : report_.notDrawn)
      session.print(msg::kNotDrawn, {count(one.count), OdString::fromUtf8(one.kind), reasonText(one.reason),
                                     OdString::fromUtf8(one.first.ascii())});
    if (report_.reachedLimit)
      session.print(msg::kPictureLimit);
  }

  OptionTable* optionTable_ = nullptr;
  std::string in_, out_, block_, layout_, size_, background_;
  bool png_ = false, svg_ = false, force_ = false, json_ = false;
  bool isSvg_ = false;
  drawing::PictureOptions options_;
  drawing::PictureReport report_;
};

} // namespace

std::unique_ptr<Subcommand> previewSubcommand() {
  return std::make_unique<Preview>();
}

} // namespace console::subcommands
