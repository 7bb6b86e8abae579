#include "console/maintenance/rename.h"
#include "console/messages/catalog/rename.h"

#include "console/commands/commands.h"
#include "console/prompts/prompt.h"

namespace console::commands {
namespace {

OdDb::SymbolTableKind promptKind(Session& session) {
  struct Choice {
    const wchar_t* option;
    OdDb::SymbolTableKind kind;
  };
  constexpr Choice kChoices[] = {{L"Layer", OdDb::kLayerTable},
                                 {L"Linetype", OdDb::kLinetypeTable},
                                 {L"Textstyle", OdDb::kTextStyleTable},
                                 {L"Dimstyle", OdDb::kDimStyleTable}};
  const auto option = promptKeyword(session, msg::kKeywordsRename, msg::kPromptRenameKind);
  for (const Choice& choice : kChoices) {
    if (option && *option == choice.option)
      return choice.kind;
  }
  return OdDb::kBlockTable;
}

} // namespace

void rename(CommandContext& context) {
  Session& session = context.session;
  const OdDb::SymbolTableKind kind = promptKind(session);
  const OdString from = promptText(session, msg::kPromptOldName).value_or(OdString());
  const OdString to = promptText(session, msg::kPromptNewName).value_or(OdString());
  renameSymbolRecord(session, kind, from, to);
  session.print(msg::kRenamed, {OdString::fromUtf8(renameKindName(kind)), from, to});
}

} // namespace console::commands
