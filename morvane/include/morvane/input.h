// Where answers come from, and the engine that asks for them.
#pragma once

#include "OdString.h"
#include "morvane/export.h"
#include "morvane/limits.h"

#include <array>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

class Output;

enum class ReadStatus { kLine, kEnd, kCancelled };

// Delivers raw lines. A line that is the escape character alone is a cancel, from every source.
class MORVANE_API InputSource {
public:
  virtual ~InputSource();
  virtual ReadStatus readLine(const OdString& prompt, OdString& line) = 0;
  // In a script a blank ends an answer wherever spaces are not asked for.
  virtual bool isScript() const { return false; }
  // A line editor shows the prompt itself; for other sources the engine prints it.
  virtual bool showsPrompt() const { return false; }
};

// Lines of a stream (piped input), UTF-8, with or without carriage returns; in a script those that begin with ';' are
// comments. The stream is the caller's.
class MORVANE_API StreamSource : public InputSource {
public:
  StreamSource(std::istream& stream, bool script);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return script_; }

private:
  std::istream& stream_;
  bool script_;
  bool started_ = false;
};

// The lines of a script; those that begin with ';' are comments.
class MORVANE_API ScriptSource : public InputSource {
public:
  explicit ScriptSource(std::string utf8);
  // Null when the file cannot be read.
  static std::shared_ptr<ScriptSource> fromFile(const std::string& path);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return true; }

private:
  bool nextLine(std::string_view& line);
  std::string text_;
  std::size_t at_ = 0;
};

// Whole answers from a list.
class MORVANE_API ListSource : public InputSource {
public:
  explicit ListSource(std::vector<OdString> answers, bool script = false);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return script_; }
  std::size_t remaining() const { return answers_.size() - at_; }

private:
  std::vector<OdString> answers_;
  std::size_t at_ = 0;
  bool script_;
};

// Turns points between the current UCS and the world. Without a drawing the two are the same: the answer is false and
// `out` is left alone.
class MORVANE_API CoordinateFrame {
public:
  virtual ~CoordinateFrame();
  virtual bool ucsToWcs(const double* in, double* out) const = 0;
  virtual bool wcsToUcs(const double* in, double* out) const = 0;
};

// Asks and understands answers. Every call answers a host result code and uses up what initGet armed.
class MORVANE_API InputEngine {
public:
  explicit InputEngine(Output& output);
  ~InputEngine();
  InputEngine(const InputEngine&) = delete;
  InputEngine& operator=(const InputEngine&) = delete;

  // Sources lie on a stack: the top one is read until it ends, then the one below it.
  void pushSource(std::shared_ptr<InputSource> source);
  void clearSources();
  bool isScript() const;
  // Prints the answers of sources that do not show them, so that the output reads as a session.
  void setEcho(bool echo) { echo_ = echo; }
  void setFrame(const CoordinateFrame* frame) { frame_ = frame; } // null: UCS and world are the same
  // Answers whether a world point may be typed; flag 8 lets every point pass. Empty: all may.
  void setLimits(std::function<bool(const double* pointWcs)> inside) { limits_ = std::move(inside); }

  int initGet(int flags, std::wstring_view keywords);
  int getString(bool allowSpaces, const OdString& prompt, OdString& result);
  // A name or a path: all of a typed line; in a script up to a blank, or "in double quotes", which are not part of it.
  int getName(const OdString& prompt, OdString& result);
  int getKeyword(const OdString& prompt, OdString& result);
  // A point in the current UCS; RTKEYWORD when an armed keyword (or, under flag 128, other text) came instead.
  int getPoint(const OdString& prompt, double* result);
  int getReal(const OdString& prompt, double& result);
  // One answer as it was typed, for readers of commands. Nothing armed is used.
  ReadStatus readAnswer(const OdString& prompt, bool allowSpaces, OdString& answer);
  // Forgets what a line still holds behind the answers that were read: it was meant for a command that failed.
  void dropRestOfLine();

  const OdString& lastKeyword() const { return lastKeyword_; } // the text behind the latest RTKEYWORD
  std::array<double, 3> lastPoint() const;                     // in the current UCS
  void setLastPoint(const double* pointUcs);
  // True once a prompt met the end of all input; asking on is a cancel each time.
  bool endedInPrompt() const { return endedInPrompt_; }

private:
  struct Level;
  struct Armed;
  enum class Verdict { kText, kKeyword, kEmpty, kCancel };
  enum class Extent { kLine, kToSpace, kToSpaceInScripts, kName }; // how much of a line answers
  using Accept = std::function<bool(const Armed&, const std::wstring&)>;
  Armed takeArmed();
  int getText(Extent extent, const OdString& prompt, OdString& result);
  Verdict promptOnce(const Armed& armed, const OdString& prompt, Extent extent, std::wstring& answer);
  int promptValue(const OdString& prompt, const OdString& complaint, const Accept& accept);
  ReadStatus readRaw(const OdString& prompt, Extent extent, std::wstring& answer);
  bool insideLimits(const double* pointUcs) const;

  Output& output_;
  std::vector<Level> levels_;
  std::unique_ptr<Armed> armed_;
  const CoordinateFrame* frame_ = nullptr;
  std::function<bool(const double*)> limits_;
  OdString lastKeyword_;
  std::array<double, 3> lastPointWcs_{};
  bool echo_ = false;
  bool endedInPrompt_ = false;
};

} // namespace morvane
