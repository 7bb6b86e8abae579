#include "console/app/line_editor.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <histedit.h>
#include <string>

namespace console {
namespace {

constexpr int kRemembered = 500;

void onInterrupt(int) {}

// While a line is read Ctrl-C breaks the reading off instead of the program.
class InterruptibleReading {
public:
  InterruptibleReading() {
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigaction(SIGINT, &action, &before_);
  }
  ~InterruptibleReading() { sigaction(SIGINT, &before_, nullptr); }
  InterruptibleReading(const InterruptibleReading&) = delete;
  InterruptibleReading& operator=(const InterruptibleReading&) = delete;

private:
  struct sigaction before_ = {};
};

class LineEditor : public morvane::InputSource {
public:
  LineEditor(std::shared_ptr<LineSink> line, std::vector<OdString> names)
      : line_(std::move(line)), names_(std::move(names)), history_(history_init()),
        editor_(el_init("morvane", stdin, stderr, stderr)) {
    HistEvent event;
    history(history_, &event, H_SETSIZE, kRemembered);
    history(history_, &event, H_SETUNIQUE, 1);
    el_set(editor_, EL_CLIENTDATA, this);
    el_set(editor_, EL_PROMPT, promptOf);
    el_set(editor_, EL_EDITOR, "emacs");
    el_set(editor_, EL_HIST, history, history_);
    el_set(editor_, EL_ADDFN, "complete-command", "Completes the name of a command", complete);
    el_set(editor_, EL_BIND, "^I", "complete-command", nullptr);
  }
  ~LineEditor() override {
    el_end(editor_);
    history_end(history_);
  }
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  bool showsPrompt() const override { return true; }

  morvane::ReadStatus readLine(const OdString& prompt, OdString& line) override {
    line_->freshLine();
    const bool breaks = !prompt.isEmpty() && prompt.getAt(0) == L'\n';
    prompt_ = (breaks ? prompt.mid(1) : prompt).toUtf8Lossless();
    const InterruptibleReading interruptible;
    int length = 0;
    errno = 0;
    const char* entered = el_gets(editor_, &length);
    line_->atLineStart();
    if (entered == nullptr || length <= 0)
      return leave(length < 0 && errno == EINTR);
    remember(entered);
    std::string_view bytes(entered, static_cast<std::size_t>(length));
    while (bytes.ends_with('\n') || bytes.ends_with('\r'))
      bytes.remove_suffix(1);
    line = OdString::fromUtf8(bytes);
    return morvane::ReadStatus::kLine;
  }

private:
  static LineEditor& self(EditLine* editor) {
    void* data = nullptr;
    el_get(editor, EL_CLIENTDATA, &data);
    return *static_cast<LineEditor*>(data);
  }
  static char* promptOf(EditLine* editor) { return self(editor).prompt_.data(); }

  // Completes the word before the cursor when one command begins with it.
  static unsigned char complete(EditLine* editor, int) {
    const LineInfo* info = el_line(editor);
    const OdString begun =
        OdString::fromUtf8(std::string_view(info->buffer, static_cast<std::size_t>(info->cursor - info->buffer)));
    OdString rest;
    int fitting = 0;
    for (const OdString& name : self(editor).names_) {
      if (name.left(begun.getLength()).iCompare(begun) == 0 && ++fitting == 1)
        rest = name.mid(begun.getLength());
    }
    if (fitting != 1 || el_insertstr(editor, rest.toUtf8().c_str()) == -1)
      return CC_ERROR;
    return CC_REFRESH;
  }

  morvane::ReadStatus leave(bool interrupted) {
    std::fputc('\n', stderr);
    if (!interrupted)
      return morvane::ReadStatus::kEnd;
    el_reset(editor_);
    return morvane::ReadStatus::kCancelled;
  }

  void remember(const char* entered) {
    HistEvent event;
    if (entered[0] != '\n' && entered[0] != '\0')
      history(history_, &event, H_ENTER, entered);
  }

  std::shared_ptr<LineSink> line_;
  std::vector<OdString> names_; // to complete
  History* history_;
  EditLine* editor_;
  std::string prompt_;
};

} // namespace

std::shared_ptr<morvane::InputSource> makeLineEditor(std::shared_ptr<LineSink> line, std::vector<OdString> names) {
  return std::make_shared<LineEditor>(std::move(line), std::move(names));
}

} // namespace console
