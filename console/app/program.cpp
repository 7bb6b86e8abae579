#include "console/app/program.h"
#include "console/app/command_loop.h"
#include "console/app/input_choice.h"
#include "console/app/registry.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/reading.h"
#include "console/messages/catalog/session.h"
#include "console/messages/catalog/usage.h"
#include "console/subcommands/subcommand.h"

#include <cctype>
#include <charconv>
#include <cstdio>
#include <iostream>
#include <optional>

namespace console {
namespace {

using SubcommandList = std::vector<std::unique_ptr<subcommands::Subcommand>>;

constexpr char kVersion[] = "morvane " MORVANE_VERSION;

struct Options {
  std::string drawing;
  std::vector<std::string> commands; // a script's lines each
  std::string script;
  std::string configFile;
  std::string maxMemory;
  bool noPrompt = false;
  drawing::ReadOptions reading;
};

SessionOptions sessionOptions(const ProgramEnvironment& environment, const Options& given) {
  SessionOptions options{
      environment.host, environment.commandLine, environment.results, false, given.noPrompt, given.reading, {}};
  options.connectUser = [input = environment.input](Session& session) { answerFromUser(session, input); };
  if (!given.configFile.empty())
    options.host.configFile = given.configFile;
  return options;
}

// Bytes, or with K, M or G behind the number units of 1024, its square and its cube; 0 for an invalid number.
std::uint64_t bytesOf(std::string_view text) {
  constexpr std::string_view kUnits = "KMG";
  const auto unit = text.empty() ? std::string_view::npos : kUnits.find(static_cast<char>(text.back() & ~0x20));
  const bool hasUnit = unit != std::string_view::npos && std::isalpha(static_cast<unsigned char>(text.back())) != 0;
  const std::string_view digits = text.substr(0, text.size() - (hasUnit ? 1 : 0));
  const unsigned shift = hasUnit ? 10 * (static_cast<unsigned>(unit) + 1) : 0;
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool good = error == std::errc() && end == digits.data() + digits.size() && number <= (UINT64_MAX >> shift);
  return good ? number << shift : 0;
}

// Options of reading hold for every sub-verb, too.
void checkReading(Options& options) {
  const std::string& encoding = options.reading.encoding;
  if (!encoding.empty() && !drawing::isKnownEncoding(encoding))
    subcommands::refuseUsage(msg::kBadEncoding, "--encoding", encoding);
  if (options.maxMemory.empty())
    return;
  options.reading.budget.bytes = bytesOf(options.maxMemory);
  if (options.reading.budget.bytes == 0)
    subcommands::refuseUsage(msg::kBadMemory, "--max-memory", options.maxMemory);
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
  } else {
    answerFromUser(session, given);
  }
  return true;
}

Status runSession(Session& session, const Options& options, std::istream* given) {
  if (!chooseSource(session, options, given)) {
    session.print(msg::kScriptUnreadable, {OdString::fromUtf8(options.script)});
    return Status::kUnreadable;
  }
  const bool entered = !session.host().input().isScript();
  if (!options.drawing.empty()) {
    const Status opened =
        session.attempt("OPEN", Command::Kind::kReadOnly, [&] { openDrawing(session, options.drawing); });
    if (opened != Status::kDone)
      return opened;
  }
  runCommands(session, allCommands());
  if (!session.wantsQuit() && session.isAnyModified())
    session.print(msg::kUnsavedAtEnd);
  return entered ? Status::kDone : session.status();
}

subcommands::OptionTable programTable(Options& options) {
  subcommands::OptionTable table("morvane", "Edits drawings: commands at a prompt, scripts, and single jobs.");
  table.add("drawing", options.drawing, "Drawing to open").withoutSubcommand();
  table.add("-c,--command", options.commands, "Commands to run, in the syntax of a script");
  table.add("-f,--file", options.script, "Script to run").excludes("-c");
  table.add("--config", options.configFile, "Settings file (that of the user)");
  table.add("--encoding", options.reading.encoding, "Code page of drawings (the one that they declare)");
  table.add("--max-memory", options.maxMemory, "Memory limit for reading a drawing, such as 500M or 2G");
  table.add("--max-depth", options.reading.budget.depth, "Maximum nesting depth of block definitions (1000)")
      .between(1, UINT32_MAX);
  table.add("--no-prompt", options.noPrompt, "Refuse questions instead of asking them");
  table.setVersion(kVersion);
  table.setSubcommandFooter("Also, as in morvane --help: --encoding, --max-memory, --max-depth, --config, --no-prompt");
  return table;
}

// The exit status when there is nothing to run.
std::optional<Status> understand(subcommands::OptionTable& table, const std::vector<std::string>& arguments,
                                 Options& options, const SubcommandList& subcommands,
                                 const ProgramEnvironment& environment) {
  const auto complain = [&](const std::string& text) {
    environment.commandLine ? environment.commandLine(OdString::fromUtf8(text))
                            : void(std::fputs(text.c_str(), stderr));
  };
  const subcommands::ParsedLine line = subcommands::parseOptions(table, arguments);
  if (line.kind == subcommands::ParsedLine::Kind::kHelp) {
    environment.results ? environment.results(OdString::fromUtf8(line.text)) : void(std::cout << line.text);
    return Status::kDone;
  }
  if (line.kind == subcommands::ParsedLine::Kind::kWrong) {
    complain("morvane: " + line.text + "\n");
    return Status::kUsage;
  }
  try {
    checkReading(options);
    for (const auto& subcommand : subcommands)
      subcommand->check();
  } catch (const Failure& failure) {
    complain("morvane: " + failure.message.text().toUtf8Lossless() + "\n");
    return failure.status;
  }
  return std::nullopt;
}

} // namespace

int runProgram(const std::vector<std::string>& arguments, const ProgramEnvironment& environment) {
  Options options;
  subcommands::OptionTable table = programTable(options);
  const SubcommandList subcommands = subcommands::allSubcommands();
  for (const auto& subcommand : subcommands)
    subcommand->describe(table);
  if (const auto status = understand(table, arguments, options, subcommands, environment))
    return static_cast<int>(*status);
  SessionOptions settings = sessionOptions(environment, options);
  for (const auto& subcommand : subcommands) {
    if (subcommand->isChosen())
      return static_cast<int>(subcommand->run(settings));
  }
  Session session(settings);
  return static_cast<int>(runSession(session, options, environment.input));
}

} // namespace console
