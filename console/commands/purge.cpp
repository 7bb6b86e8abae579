#include "console/maintenance/purge.h"

#include "console/commands/commands.h"
#include "console/prompts/prompt.h"

#include <algorithm>

namespace console::commands {
namespace {

// The kinds of an answer; none for all.
std::vector<std::string> kindsOf(const OdString& option) {
  struct Choice {
    const wchar_t* option;
    std::vector<std::string> kinds;
  };
  static const std::vector<Choice> choices = {{L"Blocks", {"block"}},
                                              {L"Layers", {"layer"}},
                                              {L"Linetypes", {"line type"}},
                                              {L"Textstyles", {"text style"}},
                                              {L"Dimstyles", {"dimension style"}}};
  if (option != L"Others") {
    for (const Choice& choice : choices) {
      if (option == choice.option)
        return choice.kinds;
    }
    return {};
  }
  std::vector<std::string> others = purgeKindNames();
  for (const Choice& choice : choices)
    others.erase(std::find(others.begin(), others.end(), choice.kinds.front()));
  return others;
}

// What could go, and why each block stays.
void listAll(CommandContext& context) {
  const std::vector<NamedThing> things = thingsToPurge(context.database, {});
  for (const NamedThing& thing : purgeable(context.database, things))
    context.session.result(Text::kPurgeable, {OdString::fromUtf8(thing.kind), thing.name});
  for (const KeptThing& kept : keptThings(context.database, things)) {
    const bool isSpace = kept.status == drawing::PurgePlan::Status::Needed;
    if (kept.thing.kind == "block" && !isSpace)
      context.session.result(Text::kNotPurged, {OdString::fromUtf8(kept.thing.kind), kept.thing.name, reasonOf(kept)});
  }
}

} // namespace

void purge(CommandContext& context) {
  for (;;) {
    const OdString option = askKeyword(context.session, Text::kKeywordsPurge, Text::kPromptPurge).value_or(L"All");
    if (option == L"?") {
      listAll(context);
      continue;
    }
    const auto purged = console::purge(context.database, thingsToPurge(context.database, kindsOf(option)));
    for (const NamedThing& thing : purged)
      context.session.result(Text::kPurged, {OdString::fromUtf8(thing.kind), thing.name});
    if (purged.empty())
      context.session.print(Text::kNothingToPurge);
    else
      context.session.print(Text::kPurgeCount, {count(purged.size())});
    return;
  }
}

} // namespace console::commands
