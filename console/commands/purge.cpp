#include "console/maintenance/purge.h"
#include "console/messages/catalog/purge.h"

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
  const std::vector<NamedObject> objects = objectsToPurge(context.database, {});
  for (const NamedObject& object : purgeable(context.database, objects))
    context.session.result(msg::kPurgeable, {OdString::fromUtf8(object.kind), object.name});
  for (const KeptObject& kept : keptObjects(context.database, objects)) {
    const bool isSpace = kept.status == drawing::PurgePlan::Status::kNeeded;
    if (kept.object.kind == "block" && !isSpace)
      context.session.result(msg::kNotPurged, {OdString::fromUtf8(kept.object.kind), kept.object.name, reasonOf(kept)});
  }
}

} // namespace

void purge(CommandContext& context) {
  for (;;) {
    const OdString option = promptKeyword(context.session, msg::kKeywordsPurge, msg::kPromptPurge).value_or(L"All");
    if (option == L"?") {
      listAll(context);
      continue;
    }
    const auto purged = console::purge(context.database, objectsToPurge(context.database, kindsOf(option)));
    for (const NamedObject& object : purged)
      context.session.result(msg::kPurged, {OdString::fromUtf8(object.kind), object.name});
    if (purged.empty())
      context.session.print(msg::kNothingToPurge);
    else
      context.session.print(msg::kPurgeCount, {count(purged.size())});
    return;
  }
}

} // namespace console::commands
