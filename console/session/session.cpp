#include "console/session/session.h"
#include "console/messages/catalog/session.h"
#include "console/messages/catalog/xrefs.h"

#include <algorithm>
#include <cstdio>

namespace console {
namespace {

void writeTo(std::FILE* file, const OdString& text) {
  const std::string bytes = text.toUtf8Lossless();
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fflush(file);
}

} // namespace

// One step of undo. Unless it is kept, the drawing is again as it was.
class Session::Step {
public:
  Step(OpenDrawing& drawing, const char* name, Command::Kind kind) : drawing_(drawing), name_(name) {
    if (kind != Command::Kind::kModifies)
      return;
    document_ = drawing.document;
    changesBefore_ = database().changeCount();
    database().startUndoRecord();
  }
  ~Step() {
    if (!document_.isNull())
      database().rollback();
  }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

  void keep() {
    if (document_.isNull() || database().changeCount() == changesBefore_)
      return; // rolling back nothing takes the mark away again
    document_.release();
    drawing_.done.push_back(name_);
    drawing_.undone.clear();
  }

private:
  OdDbDatabase& database() { return *document_->database(); }
  OpenDrawing& drawing_;
  const char* name_;
  mvsi::MvsiApDocumentPtr document_;
  std::uint64_t changesBefore_ = 0;
};

namespace {

morvane::HostOptions hostOptionsOf(const SessionOptions& options) {
  morvane::HostOptions host = options.host;
  host.reading = options.reading;
  return host;
}

} // namespace

Session::Session(SessionOptions options)
    : host_(hostOptionsOf(options)), reading_(options.reading), quiet_(options.quiet), noPrompt_(options.noPrompt) {
  auto commandLine = options.commandLine ? options.commandLine : [](const OdString& text) { writeTo(stderr, text); };
  line_ = std::make_shared<LineSink>(std::move(commandLine));
  results_ = options.results ? options.results : [](const OdString& text) { writeTo(stdout, text); };
  host_.install();
  host_.output().setSink(line_);
  watchBoxes();
  replaceDrawing(OdDbDatabase::create(), {}, false);
}

Session::~Session() {
  for (const OpenDrawing& other : backgroundDrawings_)
    host_.documents().close(other.document.get());
  host_.documents().close(drawing_.document.get());
}

// Boxes are kept for the JSON output, and a question that cannot be asked is a refusal.
void Session::watchBoxes() {
  morvane::MessageBoxes& boxes = host_.messageBoxes();
  boxes.setInteractive(isInteractive());
  boxes.setWatch([this](const morvane::MessageBox& box, int pressed) {
    BoxName name = boxNameOf(box);
    lastPressed_ = pressed;
    transcript_.push_back({std::move(name.id), box.body, std::move(name.parameters),
                           TranscriptEntry::Box{box.caption, box.buttons, pressed}});
    if (morvane::MessageBoxes::isQuestion(box) && !isInteractive())
      refuseQuestion(box.caption);
  });
}

int Session::pressedButton(const std::function<void()>& showBox) {
  lastPressed_ = morvane::MessageBoxes::kClosed;
  showBox();
  return lastPressed_;
}

void Session::refuseQuestion(const OdString& question) {
  print(msg::kQuestionRefused, {question});
  raiseStatus(Status::kRefused);
}

void Session::answerFrom(std::shared_ptr<morvane::InputSource> source) {
  source_ = std::make_shared<GatedSource>(std::move(source));
  host_.input().pushSource(source_);
}

OdString Session::takeRestOfLine() {
  if (source_ == nullptr)
    return {};
  OdString rest;
  source_->hold(true);
  host_.input().readAnswer({}, true, rest);
  source_->hold(false);
  return rest.trimLeft().trimRight();
}

void Session::keep(MessageText format, const std::vector<OdString>& arguments) {
  transcript_.push_back({format.id, render(format, arguments), arguments, std::nullopt});
}

void Session::print(MessageText format, std::vector<OdString> arguments) {
  keep(format, arguments);
  host_.output().print(L"\n" + transcript_.back().text + L"\n");
}

void Session::result(MessageText format, std::vector<OdString> arguments) {
  keep(format, arguments);
  if (!quiet_)
    printReport(transcript_.back().text + L"\n");
}

void Session::printReport(const OdString& text) {
  line_->freshLine();
  results_(text);
}

void Session::addIssues(const drawing::Report& report) {
  issues_.insert(issues_.end(), report.issues().begin(), report.issues().end());
}

void Session::replaceDrawing(const OdDbDatabasePtr& database, const std::string& path, bool repaired) {
  const mvsi::MvsiApDocumentPtr before = drawing_.document;
  const OdString name = path.empty() ? OdString() : host_.paths().toDrawing(path);
  drawing_ = {};
  drawing_.document = host_.documents().open(database, name);
  drawing_.path = path;
  drawing_.repaired = repaired;
  if (!before.isNull())
    host_.documents().close(before.get());
  host_.documents().setCurrent(drawing_.document.get());
}

bool Session::isAnyModified() const {
  const auto isModified = [](const OpenDrawing& drawing) { return drawing.document->isModified(); };
  return isModified(drawing_) || std::any_of(backgroundDrawings_.begin(), backgroundDrawings_.end(), isModified);
}

void Session::pushCurrent() {
  backgroundDrawings_.push_back(std::move(drawing_));
  drawing_ = {};
  replaceDrawing(OdDbDatabase::create(), {}, false);
}

void Session::switchTo(const mvsi::MvsiApDocument& document) {
  const auto wanted = std::find_if(backgroundDrawings_.begin(), backgroundDrawings_.end(),
                                   [&document](const OpenDrawing& other) { return other.document.get() == &document; });
  OpenDrawing next = std::move(*wanted);
  backgroundDrawings_.erase(wanted);
  backgroundDrawings_.push_back(std::move(drawing_));
  drawing_ = std::move(next);
  host_.documents().setCurrent(drawing_.document.get());
}

void Session::closeCurrent() {
  const mvsi::MvsiApDocumentPtr closed = drawing_.document;
  drawing_ = std::move(backgroundDrawings_.back());
  backgroundDrawings_.pop_back();
  host_.documents().close(closed.get());
  host_.documents().setCurrent(drawing_.document.get());
}

void Session::savedAs(const std::string& path) {
  drawing_.path = path;
  drawing_.repaired = false;
  database().fileInfo().path = path; // where its external references are looked for
  drawing_.document->setFileName(host_.paths().toDrawing(path));
  drawing_.document->markSaved();
  host_.documents().setCurrent(drawing_.document.get());
}

void Session::fail(const Failure& failure) {
  print(failure.message.format, failure.message.arguments);
  raiseStatus(failure.status);
  host_.input().dropRestOfLine();
}

Status Session::run(const Command& command, const CommandTable& commands) {
  const std::string name = OdString(command.name).toUtf8();
  const mvsi::MvsiApDocumentPtr document = drawing_.document;
  const OdString edited = document->blockEditorName();
  const Status status = attempt(name.c_str(), command.kind, [&] {
    CommandContext context{*this, drawing_, database(), commands};
    command.run(context);
  });
  // The block may be gone by undo or purging.
  if (!edited.isEmpty() && drawing_.document == document && document->blockEditorName().isEmpty())
    print(msg::kEditorClosed, {edited});
  if (command.kind != Command::Kind::kSelects)
    host_.selections().setFirst(nullptr, nullptr);
  return status;
}

Status Session::attempt(const char* name, Command::Kind kind, const std::function<void()>& work) {
  Failure failure{Status::kRefused, {msg::kFailed, {}}};
  try {
    Step step(drawing_, name, kind);
    work();
    step.keep();
    return Status::kDone;
  } catch (const Failure& thrown) {
    failure = thrown;
  } catch (const OdError& error) {
    failure.message.arguments = {error.description()};
  } catch (const std::exception& error) {
    failure.message.arguments = {OdString::fromUtf8(error.what())};
  }
  fail(failure);
  return failure.status;
}

} // namespace console
