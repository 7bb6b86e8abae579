// Sources of user input, and the engine that prompts for it.
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

// Result of reading: a line, the end of the source, or a cancel by the user.
enum class ReadStatus { kLine, kEnd, kCancelled };

// A source of lines. A line that consists of the escape character is a cancel.
class MORVANE_API InputSource {
public:
  virtual ~InputSource();
  // Reads a line without its end.
  virtual ReadStatus readLine(const OdString& prompt, OdString& line) = 0;
  // Whether a space ends an answer wherever spaces are not requested.
  virtual bool isScript() const { return false; }
  // Whether the source displays the prompt, as a line editor does; for others the engine prints it.
  virtual bool showsPrompt() const { return false; }
};

// Lines of a stream (piped input), UTF-8, with or without carriage returns; in a script lines that begin with ';' are
// comments. The caller owns the stream, which must outlive the source.
class MORVANE_API StreamSource : public InputSource {
public:
  // Reads from the stream, as a script or not.
  StreamSource(std::istream& stream, bool script);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return script_; }

private:
  std::istream& stream_;
  bool script_;
  bool started_ = false;
};

// Lines of a script; those that begin with ';' are comments.
class MORVANE_API ScriptSource : public InputSource {
public:
  // From text in UTF-8, or from a file (system path): null if it cannot be read.
  explicit ScriptSource(std::string utf8);
  static std::shared_ptr<ScriptSource> fromFile(const std::string& path);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return true; }

private:
  bool nextLine(std::string_view& line);
  std::string text_;
  std::size_t at_ = 0;
};

// Complete answers from a list.
class MORVANE_API ListSource : public InputSource {
public:
  // With these answers, as a script or not.
  explicit ListSource(std::vector<OdString> answers, bool script = false);
  ReadStatus readLine(const OdString& prompt, OdString& line) override;
  bool isScript() const override { return script_; }
  std::size_t remaining() const { return answers_.size() - at_; } // number of answers that have not been read

private:
  std::vector<OdString> answers_;
  std::size_t at_ = 0;
  bool script_;
};

// Converts points between UCS and world coordinates.
class MORVANE_API CoordinateFrame {
public:
  virtual ~CoordinateFrame();
  // Convert 3 numbers; `in` must not be `out`. False, and `out` unchanged, without a drawing: the systems are equal
  // then.
  virtual bool ucsToWcs(const double* in, double* out) const = 0;
  virtual bool wcsToUcs(const double* in, double* out) const = 0;
};

// Prompts for input and parses it. Every get function returns a host result code (RTNORM, RTEMPTY for an empty answer,
// RTCANCELLED for a cancel and at the end of the input) and consumes what initGet armed; results are changed on RTNORM
// only, texts are emptied before. Wrong input is reported, and the prompt repeated.
class MORVANE_API InputEngine {
public:
  // Prints to `output`, which must outlive the engine.
  explicit InputEngine(Output& output);
  ~InputEngine();
  InputEngine(const InputEngine&) = delete;
  InputEngine& operator=(const InputEngine&) = delete;

  // Stack of sources: the top one is read until it ends, then the one below it. A null source is ignored. isScript
  // applies to the top one.
  void pushSource(std::shared_ptr<InputSource> source);
  void clearSources();
  bool isScript() const;
  // Echo: prints answers of sources that do not display them, so that the output reads like a session. Frame: not
  // owned; null: UCS and world coordinates are equal. Limits: whether a world point may be entered; empty: all points
  // may, as they may under flag 8.
  void setEcho(bool echo) { echo_ = echo; }
  void setFrame(const CoordinateFrame* frame) { frame_ = frame; }
  void setLimits(std::function<bool(const double* pointWcs)> inside) { limits_ = std::move(inside); }

  // Arms flags and keywords for the next get function (see MvEditGetServer). Always RTNORM.
  int initGet(int flags, std::wstring_view keywords);
  // Text of at most kMaxAnswerLength characters. Without allowSpaces it ends at a space.
  int getString(bool allowSpaces, const OdString& prompt, OdString& result);
  // A name or a path: a whole line; in a script up to a space, or text in double quotes, which are not part of it.
  int getName(const OdString& prompt, OdString& result);
  // The global name of an armed keyword, or other text under flag 128.
  int getKeyword(const OdString& prompt, OdString& result);
  // A point in the current UCS (3 numbers), or a number in any form of a distance; RTKEYWORD for an armed keyword, or
  // other text under flag 128, see lastKeyword().
  int getPoint(const OdString& prompt, double* result);
  int getReal(const OdString& prompt, double& result);
  // One answer as it was entered, for command readers. Uses nothing that is armed.
  ReadStatus readAnswer(const OdString& prompt, bool allowSpaces, OdString& answer);
  // Discards the rest of a line after the answers that were read: it was intended for a command that failed.
  void dropRestOfLine();

  // Keyword or text of the latest RTKEYWORD; the last point in the current UCS, which relative points refer to (stored
  // in world coordinates, so that a change of the UCS does not move it).
  const OdString& lastKeyword() const { return lastKeyword_; }
  std::array<double, 3> lastPoint() const;
  void setLastPoint(const double* pointUcs);
  // Whether a prompt has reached the end of all input; further prompts are cancelled.
  bool endedInPrompt() const { return endedInPrompt_; }

private:
  struct Level;
  struct Armed;
  enum class Verdict { kText, kKeyword, kEmpty, kCancel };
  enum class Extent { kLine, kToSpace, kToSpaceInScripts, kName }; // part of a line that is the answer
  using Accept = std::function<bool(const Armed&, const std::wstring&)>;
  Armed takeArmed();
  int getText(Extent extent, const OdString& prompt, OdString& result);
  Verdict promptOnce(const Armed& armed, const OdString& prompt, Extent extent, std::wstring& answer);
  int promptValue(const OdString& prompt, const OdString& complaint, const Accept& accept);
  static ReadStatus readLine(Level& level, const OdString& prompt);
  static std::wstring takeAnswer(Level& level, Extent extent);
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
