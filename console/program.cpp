#include "console/program.h"
#include "console/command_loop.h"
#include "console/drawing_io.h"
#include "console/line_editor.h"
#include "console/verbs/verb.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace console {
namespace {

constexpr char kVersion[] = "morvane 0.1.0";

struct Options {
  std::string drawing;
  std::vector<std::string> commands; // a script's lines each
  std::string script;
  std::string configFile;
};

SessionOptions sessionOptions(const Surroundings& surroundings, const std::string& configFile) {
  SessionOptions options{surroundings.host, surroundings.talk, surroundings.results, false};
  if (!configFile.empty())
    options.host.configFile = configFile;
  return options;
}

// The answers of the session. False when the script cannot be read.
bool chooseSource(Session& session, const Options& options, std::istream* given) {
  session.host().input().setEcho(true); // a line editor echoes itself
  if (!options.commands.empty()) {
    std::string script;
    for (const std::string& lines : options.commands)
      script += lines + "\n";
    session.answerFrom(std::make_shared<morvane::ScriptSource>(std::move(script)));
  } else if (!options.script.empty()) {
    auto script = morvane::ScriptSource::fromFile(options.script);
    if (script == nullptr)
      return false;
    session.answerFrom(std::move(script));
  } else if (given == nullptr && isatty(STDIN_FILENO) != 0) {
    session.answerFrom(makeLineEditor(session.lineShared()));
  } else {
    session.answerFrom(std::make_shared<morvane::StreamSource>(given == nullptr ? std::cin : *given, true));
  }
  return true;
}

Status runSession(Session& session, const Options& options, std::istream* given) {
  if (!chooseSource(session, options, given)) {
    session.say(Text::kScriptUnreadable, {OdString::fromUtf8(options.script)});
    return Status::Unreadable;
  }
  const bool typed = !session.host().input().isScript();
  if (!options.drawing.empty()) {
    const Status opened = session.attempt("OPEN", Command::Kind::Looks, [&] { openDrawing(session, options.drawing); });
    if (opened != Status::Done)
      return opened;
  }
  runCommands(session);
  if (!session.wantsQuit() && session.drawing().document->isModified())
    session.say(Text::kUnsavedAtEnd);
  return typed ? Status::Done : session.status();
}

void describeOptions(CLI::App& app, Options& options) {
  app.add_option("drawing", options.drawing, "Drawing to open");
  auto* commands = app.add_option("-c,--command", options.commands, "Commands to run, as a script would hold them");
  commands->allow_extra_args(false);
  app.add_option("-f,--file", options.script, "Script of commands to run")->excludes(commands);
  app.add_option("--config", options.configFile, "File of settings in place of the user's own");
  app.set_version_flag("--version", kVersion);
  app.require_subcommand(0, 1);
}

// CLI11 asks for the words in reverse.
std::vector<std::string> reversed(const std::vector<std::string>& arguments) {
  return {arguments.rbegin(), arguments.rend()};
}

} // namespace

int runProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
  CLI::App app("Works on drawings: typed commands, scripts, and one-line jobs.", "morvane");
  Options options;
  describeOptions(app, options);
  const auto verbs = verbs::allVerbs();
  for (const auto& verb : verbs)
    verb->describe(app);
  const auto tell = [&](const std::string& text) {
    surroundings.talk ? surroundings.talk(OdString::fromUtf8(text)) : void(std::fputs(text.c_str(), stderr));
  };
  try {
    app.parse(reversed(arguments));
    for (const auto& verb : verbs)
      verb->check();
  } catch (const CLI::Success& success) { // help or version
    std::ostringstream text;
    app.exit(success, text, text);
    surroundings.results ? surroundings.results(OdString::fromUtf8(text.str())) : void(std::cout << text.str());
    return 0;
  } catch (const CLI::Error& error) {
    tell("morvane: " + std::string(error.what()) + "\n");
    return static_cast<int>(Status::Usage);
  } catch (const Failure& failure) {
    tell("morvane: " + failure.message.shown().toUtf8Lossless() + "\n");
    return static_cast<int>(failure.status);
  }
  SessionOptions settings = sessionOptions(surroundings, options.configFile);
  for (const auto& verb : verbs) {
    if (verb->isChosen())
      return static_cast<int>(verb->run(settings));
  }
  Session session(settings);
  return static_cast<int>(runSession(session, options, surroundings.input));
}

} // namespace console
