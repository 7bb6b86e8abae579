// One run of the program: the host, the open drawing, what is said, and how it will end.
#pragma once

#include "console/session/command.h"
#include "console/session/failure.h"
#include "console/session/gated_source.h"
#include "console/session/line_sink.h"
#include "console/session/message_box_ids.h"

#include "DbDatabase.h"
#include "Ge/GeMatrix3d.h"
#include "drawing/file.h"
#include "drawing/report.h"
#include "morvane/host.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace console {

// A drawing that is open, with what the console keeps beside it.
struct OpenDrawing {
  mvsi::MvsiApDocumentPtr document;
  std::string path;                // of this system; empty for a drawing without a file
  bool repaired = false;           // memory differs from the file, which must not be overwritten without a confirmation
  std::vector<std::string> done;   // names of the steps that UNDO reverts, oldest first
  std::vector<std::string> undone; // and of those that REDO brings back
  std::vector<OdGeMatrix3d> earlierUcs;
  OdDbObjectIdArray previous; // the latest selection
};

// Something that was said, for machines.
struct TranscriptEntry {
  struct Box {
    OdString caption;
    std::vector<OdString> buttons;
    int pressed = morvane::MessageBoxes::kClosed;
  };
  std::string id;
  OdString text;
  std::vector<OdString> parameters;
  std::optional<Box> box; // when it was a message box
};

class Session;

enum class SourceObjects { kKeep, kConvert, kDelete };

struct SessionOptions {
  morvane::HostOptions host;
  std::function<void(const OdString&)> commandLine; // what the command line shows; empty: standard error
  std::function<void(const OdString&)> results;     // empty: standard output
  bool quiet = false;                               // results are kept for a machine-readable report, not written
  bool noPrompt = false;                            // questions are not asked but refused
  drawing::ReadOptions reading = {};                // for every drawing that is opened
  // Lets the user answer the questions of a job; empty: the job cannot ask.
  std::function<void(Session&)> connectUser = nullptr;
};

class Session {
public:
  explicit Session(SessionOptions options = {});
  ~Session();

  morvane::Host& host() { return host_; }
  LineSink& line() { return *line_; }
  const drawing::ReadOptions& reading() const { return reading_; }
  const std::shared_ptr<LineSink>& lineShared() const { return line_; }

  void answerFrom(std::shared_ptr<morvane::InputSource> source);
  // The rest of a line after the answers that were read, trimmed. Never prompts.
  OdString takeRestOfLine();

  // A line on the command line, and a line of results.
  void print(MessageText format, std::vector<OdString> arguments = {});
  void result(MessageText format, std::vector<OdString> arguments = {});
  void printReport(const OdString& text); // to where results go, also when they are kept
  const std::vector<TranscriptEntry>& transcript() const { return transcript_; } // everything, results included
  // Whether questions may be asked. Where not, the question is shown and refused.
  bool isInteractive() const { return !noPrompt_; }
  void refuseQuestion(const OdString& question);
  // Runs a function that shows a message box, and returns the index of the button that was pressed in it, or kClosed.
  int pressedButton(const std::function<void()>& showBox);
  void addIssues(const drawing::Report& report);
  const std::vector<drawing::Issue>& issues() const { return issues_; }

  OpenDrawing& drawing() { return drawing_; }
  OdDbDatabase& database() { return *drawing_.document->database(); }
  // In place of the drawing that was open.
  void replaceDrawing(const OdDbDatabasePtr& database, const std::string& path, bool repaired);
  // Drawings that are open beside the current one, the one that was current last at the end.
  const std::vector<OpenDrawing>& backgroundDrawings() const { return backgroundDrawings_; }
  bool isAnyModified() const;
  void pushCurrent();                                  // and a new drawing is current
  void switchTo(const mvsi::MvsiApDocument& document); // one of the others
  void closeCurrent();                                 // the last of the others, of which there must be one, is current
  // The drawing now is that file.
  void savedAs(const std::string& path);

  // Runs it, reports why it failed, and reverts what a failed one did. The result is noted, too.
  Status run(const Command& command, const CommandTable& commands);
  Status attempt(const char* name, Command::Kind kind, const std::function<void()>& work);

  void raiseStatus(Status status) { status_ = worse(status_, status); }
  Status status() const { return status_; }
  void forgetStatus() { status_ = Status::kDone; }
  void quit() { wantsQuit_ = true; }
  bool wantsQuit() const { return wantsQuit_; }

private:
  class Step;
  void fail(const Failure& failure);
  void keep(MessageText format, const std::vector<OdString>& arguments);
  void watchBoxes();
  morvane::Host host_;
  std::shared_ptr<LineSink> line_;
  std::shared_ptr<GatedSource> source_; // null until there is one
  std::function<void(const OdString&)> results_;
  drawing::ReadOptions reading_;
  OpenDrawing drawing_;
  std::vector<OpenDrawing> backgroundDrawings_;
  std::vector<TranscriptEntry> transcript_;
  int lastPressed_ = morvane::MessageBoxes::kClosed;
  std::vector<drawing::Issue> issues_;
  Status status_ = Status::kDone;
  bool quiet_ = false;
  bool noPrompt_ = false;
  bool wantsQuit_ = false;
};

} // namespace console
